#include "tools/TextRewriter.h"

#include <QRegularExpression>
#include <QTextCodec>

#include <cstring>

namespace Orvida::Tools {

namespace {

// How a document of this encoding begins, with its mark or with its first character.
struct Beginning
{
    QByteArray bytes;
    const char *codec;
    bool isMark;
};

// Longer ones before those that they begin with.
const Beginning beginnings[] = {
    {QByteArrayLiteral("\x00\x00\xFE\xFF"), "UTF-32BE", true},
    {QByteArrayLiteral("\xFF\xFE\x00\x00"), "UTF-32LE", true},
    {QByteArrayLiteral("\xFE\xFF"), "UTF-16BE", true},
    {QByteArrayLiteral("\xFF\xFE"), "UTF-16LE", true},
    {QByteArrayLiteral("\xEF\xBB\xBF"), "UTF-8", true},
    {QByteArrayLiteral("\x00\x00\x00<"), "UTF-32BE", false},
    {QByteArrayLiteral("<\x00\x00\x00"), "UTF-32LE", false},
    {QByteArrayLiteral("\x00<"), "UTF-16BE", false},
    {QByteArrayLiteral("<\x00"), "UTF-16LE", false},
    {QByteArray(), "UTF-8", false},
};

const Beginning &beginningOf(const QByteArray &document)
{
    const Beginning *beginning = beginnings;
    while (!document.startsWith(beginning->bytes))
        ++beginning;
    return *beginning;
}

QByteArray declaredEncoding(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A<\\?xml\\s[^>]*?\\bencoding\\s*=\\s*[\"']([^\"'>]*)[\"']"));
    return pattern.match(text).captured(1).toLatin1();
}

// These names leave the byte order open; the beginning of the document has shown it.
bool leavesOrderOpen(const QByteArray &encoding)
{
    return qstricmp(encoding.constData(), "UTF-16") == 0 || qstricmp(encoding.constData(), "UTF-32") == 0;
}

QByteArray encoded(const QTextCodec &codec, const QChar *text, int size)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec.fromUnicode(text, size, &state);
}

} // namespace

TextRewriter::TextRewriter(const QByteArray &document) : m_document(document)
{
    constexpr int longestDeclaration = 4096;
    const Beginning &beginning = beginningOf(document);
    m_markSize = beginning.isMark ? beginning.bytes.size() : 0;
    m_codec = QTextCodec::codecForName(beginning.codec);
    const QByteArray declared =
        declaredEncoding(m_codec->toUnicode(document.mid(m_markSize, longestDeclaration)));
    if (!declared.isEmpty() && !leavesOrderOpen(declared))
        m_codec = QTextCodec::codecForName(declared);
    if (!m_codec)
        return;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    m_text = m_codec->toUnicode(document.constData() + m_markSize, document.size() - m_markSize, &state);
    m_isDecoded = state.invalidChars == 0 && state.remainingChars == 0;
}

// Not QTextCodec::canEncode(), which says yes to pairs of surrogates in UTF-32 and adds a zero to each.
bool TextRewriter::canEncode(const QString &text) const
{
    const QByteArray bytes = encoded(*m_codec, text.constData(), text.size());
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return m_codec->toUnicode(bytes.constData(), bytes.size(), &state) == text;
}

void TextRewriter::replace(int begin, int end, const QString &replacement)
{
    m_replacements.append({begin, end, replacement});
}

QByteArray TextRewriter::result() const
{
    if (!m_isDecoded)
        return QByteArray();
    QByteArray changed = m_document.left(m_markSize);
    int place = m_markSize;
    bool isExact = true;
    // The bytes of a part of the text; they must be those at the current place of the document.
    const auto take = [&](int begin, int end) {
        const QByteArray bytes = encoded(*m_codec, m_text.constData() + begin, end - begin);
        isExact = isExact && place + bytes.size() <= m_document.size()
                  && std::memcmp(m_document.constData() + place, bytes.constData(), bytes.size()) == 0;
        place += bytes.size();
        return bytes;
    };
    int kept = 0;
    for (const Replacement &replacement : m_replacements) {
        changed += take(kept, replacement.begin);
        take(replacement.begin, replacement.end);
        changed += encoded(*m_codec, replacement.text.constData(), replacement.text.size());
        kept = replacement.end;
    }
    changed += take(kept, m_text.size());
    return isExact && place == m_document.size() ? changed : QByteArray();
}

} // namespace Orvida::Tools
