#include "catalogs/reading/PlainXmlScanner_p.h"

#include <QIODevice>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>

namespace Orvida::Catalogs {

namespace {

using Token = QXmlStreamReader::TokenType;

// What an ASCII byte may be a part of. CR and the bytes beyond ASCII have no kind and are looked at closely.
enum ByteKind : uchar { Space = 1, Text = 2, Comment = 4, Value = 8, NameStart = 16, NameRest = 32 };

constexpr std::array<uchar, 256> kinds = [] {
    std::array<uchar, 256> result{};
    const auto flip = [&result](std::string_view bytes, int kind) {
        for (const char byte : bytes)
            result[static_cast<uchar>(byte)] ^= static_cast<uchar>(kind);
    };
    for (std::size_t byte = ' '; byte < 0x80; ++byte)
        result[byte] = Text | Comment | Value;
    flip("\t\n", Text | Comment | Value);
    flip(" \t\n", Space);
    flip("<&]", Text);
    flip("-", Comment);
    flip("<&\"'", Value);
    flip("ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz", NameStart | NameRest);
    flip("0123456789-.", NameRest);
    return result;
}();

std::string_view viewOf(const uchar *begin, const uchar *end)
{
    return {reinterpret_cast<const char *>(begin), static_cast<std::size_t>(end - begin)};
}

// No byte-order marks, because Qt drops those at the start of some blocks.
bool isPlainCharacter(uint character)
{
    const bool isControl = character < ' ' && character != '\t' && character != '\n' && character != '\r';
    return !isControl && character <= QChar::LastValidCodePoint && !QChar::isSurrogate(character)
           && character != 0xFEFF && character != 0xFFFE && character != 0xFFFF;
}

// The steps of a scan. Each moves `at` over what it takes. A step that fails gives false, 0 or nothing and
// leaves `at` where it could not go on, which is the end of the bytes whenever more of them might help.

// A character beyond ASCII.
uint takeCharacter(const uchar *&at)
{
    constexpr uint smallest[] = {0x80, 0x800, 0x10000};
    const uint lead = *at;
    if (lead < 0xC0 || lead >= 0xF8)
        return 0;
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    uint character = lead & (0x3FU >> more);
    for (int i = 0; i < more; ++i) {
        if ((*++at & 0xC0) != 0x80)
            return 0;
        character = character << 6 | (*at & 0x3FU);
    }
    ++at;
    return character >= smallest[more - 1] && isPlainCharacter(character) ? character : 0;
}

// A reference, as the character that it stands for.
uint takeReference(const uchar *&at)
{
    constexpr std::pair<std::string_view, uint> entities[] = {
        {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"apos", '\''}, {"quot", '"'}};
    const uchar *const begin = ++at;
    while (kinds[*at] & NameRest || *at == '#')
        ++at;
    if (*at != ';')
        return 0;
    const std::string_view reference = viewOf(begin, at++);
    for (const auto &[name, character] : entities) {
        if (reference == name)
            return character;
    }
    if (*begin != '#')
        return 0;
    const bool isHexadecimal = begin[1] == 'x';
    const char *const digits = reference.data() + (isHexadecimal ? 2 : 1);
    uint number = 0; // It stays that when there are no digits or too many.
    const char *const end =
        std::from_chars(digits, reference.data() + reference.size(), number, isHexadecimal ? 16 : 10).ptr;
    return *end == ';' && isPlainCharacter(number) ? number : 0;
}

// The buffer is large enough for memcmp() to look beyond the end of the bytes.
bool takeBytes(const uchar *&at, std::string_view bytes)
{
    if (std::memcmp(at, bytes.data(), bytes.size()) == 0) {
        at += bytes.size();
        return true;
    }
    for (std::size_t i = 0; *at == static_cast<uchar>(bytes[i]); ++i)
        ++at;
    return false;
}

// All that may be a part of `kind`, line ends included, character by character.
template <ByteKind kind, typename Append>
bool takeAll(const uchar *&at, Append append)
{
    const uchar *next = at;
    for (uint character = 1; character != 0; append(character)) {
        for (; kinds[*next] & kind; ++next)
            append(*next);
        if (*next == '\r') {
            character = *++next == '\n' ? *next++ : 0;
        } else if (kind == Text && *next == '&') {
            character = takeReference(next);
        } else if (kind == Text && *next == ']') {
            // Stricter than the ban on "]]>", to which Qt also counts characters from references.
            character = *++next == '>' ? 0 : ']';
        } else if (kind != Space && *next >= 0x80) {
            character = takeCharacter(next);
        } else {
            at = next;
            return true;
        }
    }
    at = next;
    return false;
}

constexpr auto ignore = [](uint) {};

std::string_view takeName(const uchar *&at)
{
    constexpr std::ptrdiff_t longest = 255;
    const uchar *const begin = at;
    if (kinds[*at] & NameStart) {
        while (kinds[*at] & NameRest)
            ++at;
    }
    return at - begin <= longest ? viewOf(begin, at) : std::string_view();
}

bool takeQuoted(const uchar *&at, std::string_view &value)
{
    const uchar quote = *at;
    if (quote != '"' && quote != '\'')
        return false;
    const uchar *const begin = ++at;
    if (!takeAll<Value>(at, ignore) || *at != quote)
        return false;
    value = viewOf(begin, at++);
    return true;
}

// The attributes of a tag, up to the end of the tag. Nobody asks for them. A name that is found anywhere
// before counts as repeated.
bool takeAttributes(const uchar *&at)
{
    const uchar *const begin = at;
    std::string_view value;
    for (int count = 0; count <= 32 && takeAll<Space>(at, ignore); ++count) {
        if (*at == '>' || *at == '/')
            return true;
        const std::string_view before = viewOf(begin, at);
        const std::string_view name = kinds[at[-1]] & Space ? takeName(at) : std::string_view();
        if (name.empty() || name == "xmlns" || before.find(name) != std::string_view::npos
            || !takeBytes(at, "=") || !takeQuoted(at, value))
            return false;
    }
    return false;
}

// A byte-order mark and a declaration, if they are there.
bool takeDocumentStart(const uchar *&at)
{
    std::string_view version;
    std::string_view encoding = "UTF-8";
    if (*at == 0xEF && !takeBytes(at, "\xEF\xBB\xBF"))
        return false;
    const bool isDeclared = *at == '<' && (at[1] == '?' || at[1] == 0);
    if (!isDeclared || !takeBytes(at, "<?xml version=") || !takeQuoted(at, version))
        return !isDeclared && *at != 0;
    if (*at == ' ' && at[1] != '?' && (!takeBytes(at, " encoding=") || !takeQuoted(at, encoding)))
        return false;
    return (*at == '?' || takeBytes(at, " ")) && takeBytes(at, "?>") && version == "1.0"
           && encoding.size() == 5 && qstrnicmp(encoding.data(), "UTF-8", 5) == 0;
}

bool takeComment(const uchar *&at)
{
    if (!takeBytes(at, "<!--"))
        return false;
    while (takeAll<Comment>(at, ignore) && *at == '-') {
        if (*++at == '-')
            return takeBytes(at, "->");
    }
    return false;
}

} // namespace

Token PlainXmlScanner::readNext()
{
    if (m_type == QXmlStreamReader::EndDocument || hasError())
        return m_type;
    ++m_tokenCount;
    m_textLength = 0;
    m_name = nullptr;
    const uchar *at = nullptr;
    do {
        at = m_next;
        m_type = scan(at);
    } while (hasError() && at == m_end && readMore());
    m_next = at;
    return m_type;
}

void PlainXmlScanner::skipCurrentElement()
{
    const std::size_t depth = m_openElements.size();
    while (m_openElements.size() >= depth && m_type != QXmlStreamReader::EndDocument && !hasError())
        readNext();
}

// Keeps the bytes that are not read yet, and adds a block. False when there is nothing new to scan.
bool PlainXmlScanner::readMore()
{
    constexpr std::size_t longestToken = 65536;
    const auto kept = static_cast<std::size_t>(m_end - m_next);
    if (m_isAllRead || kept > longestToken)
        return false;
    m_dropped += m_next - m_buffer.data();
    std::memmove(m_buffer.data(), m_next, kept);
    m_buffer.resize(std::max(m_buffer.size(), kept + static_cast<std::size_t>(m_blockSize) + limit));
    m_text.resize(static_cast<int>(m_buffer.size()));
    const qint64 count = m_device.read(reinterpret_cast<char *>(m_buffer.data() + kept), m_blockSize);
    m_isAllRead = count == 0;
    m_next = m_buffer.data();
    m_end = m_next + kept + std::max<qint64>(count, 0);
    m_buffer[static_cast<std::size_t>(m_end - m_next)] = 0;
    return count >= 0;
}

// A token. `Invalid`, with nothing changed, is final unless `at` is the end of the bytes.
Token PlainXmlScanner::scan(const uchar *&at)
{
    if (m_isEmptyElement)
        return scanEndTag(at);
    if (m_openElements.empty()) {
        if (m_tokenCount == 1)
            return takeDocumentStart(at) ? QXmlStreamReader::StartDocument : QXmlStreamReader::Invalid;
        // White space around the root is no token.
        const bool isTaken = takeAll<Space>(at, ignore);
        if (isTaken && m_isAllRead && m_lastStarted != &m_start && at == m_end)
            return QXmlStreamReader::EndDocument;
        if (!isTaken || *at != '<')
            return QXmlStreamReader::Invalid;
    } else if (*at != '<') {
        return scanText(at);
    }
    if (at[1] == '!')
        return takeComment(at) ? QXmlStreamReader::Comment : QXmlStreamReader::Invalid;
    return at[1] == '/' ? scanEndTag(at) : scanStartTag(at);
}

Token PlainXmlScanner::scanStartTag(const uchar *&at)
{
    Name *const name = takeElementName(++at);
    if (!name || (*at != '>' && !takeAttributes(at)))
        return QXmlStreamReader::Invalid;
    const bool isEmptyElement = *at == '/';
    const bool isSecondRoot = m_openElements.empty() && m_lastStarted != &m_start;
    if (isSecondRoot || m_openElements.size() == limit || !takeBytes(at, isEmptyElement ? "/>" : ">"))
        return QXmlStreamReader::Invalid;
    m_isEmptyElement = isEmptyElement;
    m_openElements.push_back(name);
    m_lastStarted->follower = name;
    m_lastStarted = name;
    m_name = name;
    return QXmlStreamReader::StartElement;
}

Token PlainXmlScanner::scanEndTag(const uchar *&at)
{
    if (!m_isEmptyElement) {
        at += 2;
        if (m_openElements.empty() || !takeBytes(at, m_openElements.back()->bytes)
            || !takeAll<Space>(at, ignore) || !takeBytes(at, ">"))
            return QXmlStreamReader::Invalid;
    }
    m_isEmptyElement = false;
    m_name = m_openElements.back();
    m_openElements.pop_back();
    return QXmlStreamReader::EndElement;
}

Token PlainXmlScanner::scanText(const uchar *&at)
{
    if (!m_keepsText)
        return takeAll<Text>(at, ignore) && *at == '<' ? QXmlStreamReader::Characters
                                                       : QXmlStreamReader::Invalid;
    QChar *end = m_text.data();
    const auto append = [&end](uint character) {
        if (QChar::requiresSurrogates(character))
            *end++ = QChar::highSurrogate(character);
        *end++ = QChar::requiresSurrogates(character) ? QChar::lowSurrogate(character) : QChar(character);
    };
    if (!takeAll<Text>(at, append) || *at != '<')
        return QXmlStreamReader::Invalid;
    m_textLength = static_cast<int>(end - m_text.constData());
    return QXmlStreamReader::Characters;
}

PlainXmlScanner::Name *PlainXmlScanner::takeElementName(const uchar *&at)
{
    // Nearly always, an element is followed by the same one as the last time.
    const uchar *end = at;
    Name *const guess = m_lastStarted->follower;
    if (guess && takeBytes(end, guess->bytes) && !(kinds[*end] & NameRest)) {
        at = end;
        return guess;
    }
    const std::string_view bytes = takeName(at);
    // Bytes that end with a name may end in the middle of it.
    if (bytes.empty() || at == m_end)
        return nullptr;
    Name &name = m_names[std::string(bytes)];
    if (name.bytes.empty()) {
        name.bytes = bytes;
        name.text = QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size()));
    }
    return m_names.size() <= limit ? &name : nullptr;
}

} // namespace Orvida::Catalogs
