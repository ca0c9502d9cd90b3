// Fuzz target: any bytes as a document, and as a recipe for one. QXmlStreamReader must read the same from
// every document that the scanner finds plain.
#include "fuzz/MemoryFile.h"
#include "support/ScannerComparison.h"

#include <QList>

namespace {

struct Piece
{
    const char *text = nullptr;    // none: the end tag of the innermost element
    const char *element = nullptr; // that the text opens
};

// What control characters mean in a recipe.
constexpr Piece pieces[] = {
    {"<a>", "a"},
    {"<ab c='d'>", "ab"},
    {"<a.-1\r\n>", "a.-1"},
    {},
    {},
    {"<e f=\"g\"\t/>"},
    {"<!--"},
    {"-->"},
    {"<!---->"},
    {"&lt;"},
    {"&amp;"},
    {"&#93;"},
    {"&#x1F687;"},
    {"&#13;"},
    {"&#"},
    {"&#x"},
    {";"},
    {"]"},
    {"]]"},
    {"\r\n"},
    {"\r"},
    {"\xC3\xA9"},
    {"\xE2\x82\xAC"},
    {"\xF0\x9F\x9A\x87"},
    {"\xEF\xBB\xBF"},
    {"\xEF\xBF\xBD"},
    {"\n"},
    {"<![CDATA["},
    {"<h i='"},
    {"'/>"},
    {"' i='"},
    {"\xEF\xBF\xBF"},
};

// Nearly every change of a document breaks it, and then there is nothing to compare. Many recipes give a
// plain one: what they open is closed, and everything but control characters is text.
QByteArray documentFrom(const QByteArray &recipe)
{
    QByteArray document = "<r>";
    QList<QByteArray> open = {"r"};
    for (const char byte : recipe) {
        const auto number = static_cast<std::size_t>(static_cast<unsigned char>(byte));
        const Piece piece = number < std::size(pieces) ? pieces[number] : Piece();
        if (number >= std::size(pieces))
            document += byte == '<' || byte == '&' ? QByteArray() : QString(QLatin1Char(byte)).toUtf8();
        else if (piece.text)
            document += piece.text;
        else if (!open.isEmpty())
            document += "</" + open.takeLast() + '>';
        if (piece.element)
            open.append(piece.element);
    }
    while (!open.isEmpty())
        document += "</" + open.takeLast() + '>';
    return document;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    // The bytes themselves choose, so that any XML file is an input.
    constexpr int blockSizes[] = {1, 2, 3, 7, 16, 61, 1000, 16 * 1024};
    const std::size_t choice = qChecksum(bytes.constData(), static_cast<uint>(size));
    const int blockSize = blockSizes[choice % std::size(blockSizes)];
    const int skipped = static_cast<int>(choice / std::size(blockSizes) % 4);
    for (const QByteArray &document : {bytes, documentFrom(bytes)})
        Orvida::Fuzz::stopAt(Orvida::Tests::compareWithQt(document, blockSize, skipped).difference);
    return 0;
}
