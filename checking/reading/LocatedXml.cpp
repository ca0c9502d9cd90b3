#include "checking/reading/LocatedXml_p.h"

#include <algorithm>
#include <cstring>

namespace Orvida::Checking {

namespace {

// The namespace of attributes such as xsi:schemaLocation.
constexpr QLatin1String schemaNamespace("http://www.w3.org/2001/XMLSchema-instance", 41);
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isSpace(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
}

// How many UTF-16 code units stand for UTF-8. Nearly all of it is ASCII, so eight bytes at once are looked
// at.
quint32 lengthOf(std::string_view bytes)
{
    constexpr quint64 beyondAscii = 0x8080808080808080;
    auto length = quint32(bytes.size());
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, sizeof(quint64));
        quint64 word = 0;
        std::memcpy(&word, piece.data(), piece.size());
        if (word & beyondAscii) {
            for (const char byte : piece) {
                const auto b = static_cast<uchar>(byte);
                length += quint32(b >= 0xF0) - quint32((b & 0xC0) == 0x80);
            }
        }
        bytes.remove_prefix(piece.size());
    }
    return length;
}

QString textOf(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), int(bytes.size()));
}

} // namespace

LocatedXml::~LocatedXml() = default;

LocatedXml::TokenType AnyXml::readNext()
{
    m_type = m_reader.readNext();
    m_name = m_reader.name();
    m_text = m_reader.text();
    // To know that a text ends, the reader has read one character more.
    const bool isAhead = m_type == QXmlStreamReader::Characters && !m_reader.isCDATA();
    m_position = {quint32(m_reader.lineNumber()), quint32(m_reader.columnNumber() + (isAhead ? 0 : 1))};
    return m_type;
}

QStringList AnyXml::attributeNames() const
{
    QStringList names;
    const QXmlStreamAttributes attributes = m_reader.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const bool isForOthers =
            attribute.prefix() == QLatin1String("xml") || attribute.namespaceUri() == schemaNamespace;
        if (!isForOthers)
            names.append(attribute.qualifiedName().toString());
    }
    return names;
}

LocatedXml::TokenType PlainXml::readNext()
{
    const qint64 start = m_scanner.offset();
    m_type = m_scanner.readNext();
    if (m_scanner.hasError())
        return m_type;
    m_bytes = m_scanner.bytesFrom(start);
    advance();
    m_name = m_scanner.name();
    m_text = m_scanner.text();
    if (m_type == QXmlStreamReader::Comment) {
        constexpr std::string_view opening = "<!--";
        constexpr std::string_view closing = "-->";
        std::string_view comment = m_bytes.substr(m_bytes.find(opening) + opening.size());
        comment.remove_suffix(closing.size());
        m_comment = textOf(comment).replace(QLatin1String("\r\n"), QLatin1String("\n"));
        m_text = QStringRef(&m_comment);
    }
    return m_type;
}

// The scanner has made sure that they are well-formed and without prefixes.
QStringList PlainXml::attributeNames() const
{
    QStringList names;
    if (m_type != QXmlStreamReader::StartElement)
        return names;
    std::string_view rest = m_bytes.substr(m_bytes.find('<') + 1 + std::size_t(m_name.length()));
    for (std::size_t assignment = rest.find('='); assignment != std::string_view::npos;
         assignment = rest.find('=')) {
        const std::string_view name = rest.substr(0, assignment);
        names.append(textOf(name.substr(name.find_last_of(" \t\n\r") + 1)));
        rest.remove_prefix(rest.find(rest[assignment + 1], assignment + 2) + 1);
    }
    return names;
}

// As for the other reader, a reference to a space is not white space.
bool PlainXml::isWhitespace() const
{
    return m_type == QXmlStreamReader::Characters && std::all_of(m_bytes.begin(), m_bytes.end(), isSpace);
}

// Moves the position over the bytes of the token. A byte-order mark counts nothing.
void PlainXml::advance()
{
    std::string_view bytes = m_bytes;
    if (m_type == QXmlStreamReader::StartDocument && bytes.substr(0, byteOrderMark.size()) == byteOrderMark)
        bytes.remove_prefix(byteOrderMark.size());
    if (bytes.find('\n') != std::string_view::npos) {
        m_position.line += quint32(std::count(bytes.begin(), bytes.end(), '\n'));
        m_position.column = 1;
        bytes.remove_prefix(bytes.rfind('\n') + 1);
    }
    m_position.column += lengthOf(bytes);
}

} // namespace Orvida::Checking
