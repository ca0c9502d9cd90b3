// Fuzz target: any bytes as UTF-8 and as UTF-16, decoded as scrambled text and compared with a slow, plain
// decoding, and encoded and decoded again.
#include "catalogs/reading/ScrambledText.h"
#include "fuzz/MemoryFile.h"

#include <cstring>

using Orvida::Catalogs::ScrambledText;

namespace {

QString plainlyDecoded(const QString &scrambled)
{
    QByteArray bytes;
    for (int i = 0; i < scrambled.size() / 2; ++i) {
        int byte = scrambled.mid(2 * i, 2).toInt(nullptr, 16) & 0xFF;
        for (int step = 0; step < (i + 1) % 5 + 1; ++step)
            byte = byte / 2 + byte % 2 * 0x80;
        bytes.append(static_cast<char>(byte));
    }
    return QString::fromUtf8(bytes.constData());
}

// The part of a text that the scrambled form can hold: it ends at a zero character, and UTF-8 has no half
// surrogate pairs.
QString storable(const QString &text)
{
    const int end = text.indexOf(QChar(QChar::Null));
    QString result = text.left(end < 0 ? text.size() : end);
    for (int i = 0; i < result.size(); ++i) {
        const bool isPair =
            result.at(i).isHighSurrogate() && i + 1 < result.size() && result.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (result.at(i).isSurrogate())
            result[i] = QLatin1Char('?');
    }
    return result;
}

void check(const QString &text)
{
    const QString decoded = ScrambledText::decode(QStringRef(&text));
    if (decoded != plainlyDecoded(text))
        Orvida::Fuzz::stopAt(QStringLiteral("decoded as ") + decoded);
    const QString encoded = ScrambledText::encode(text);
    const QString again = ScrambledText::decode(QStringRef(&encoded));
    if (again != storable(text) || plainlyDecoded(encoded) != again)
        Orvida::Fuzz::stopAt(QStringLiteral("encoded as %1, which reads %2").arg(encoded, again));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    check(QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    QString utf16(static_cast<int>(size / 2), Qt::Uninitialized);
    std::memcpy(utf16.data(), data, size / 2 * 2);
    check(utf16);
    return 0;
}
