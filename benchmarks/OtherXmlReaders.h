// Two XML parsers with the interface of the library's record loop, so that each can fill the same catalog.
#pragma once

#include <QFile>
#include <QString>
#include <QStringRef>
#include <QXmlStreamReader>

#include <libxml/parser.h>
#include <pugixml.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Orvida::Benchmarks {

/// Converts one UTF-8 text to UTF-16 at a time, in memory that it reuses.
class Utf16Buffer
{
public:
    /// The characters of `utf8`; valid until the next call.
    QStringRef converted(std::string_view utf8);

private:
    QString m_characters;
};

/// Walks a document tree of pugixml.
class PugixmlReader
{
public:
    using TokenType = QXmlStreamReader::TokenType;

    explicit PugixmlReader(const QString &path);
    Q_DISABLE_COPY(PugixmlReader)

    TokenType readNext();
    void skipCurrentElement() { m_type = QXmlStreamReader::EndElement; }
    TokenType tokenType() const { return m_type; }
    QStringRef name() { return m_buffer.converted(m_node.name()); }
    QStringRef text() { return m_buffer.converted(m_node.value()); }
    qint64 lineNumber() const { return 0; }
    qint64 columnNumber() const { return 0; }

private:
    pugi::xml_document m_document;
    bool m_isParsed;
    pugi::xml_node m_node;
    TokenType m_type = QXmlStreamReader::NoToken;
    Utf16Buffer m_buffer;
};

/// Returns the SAX2 events of libxml2's push parser as tokens, one block of the file at a time.
class SaxReader
{
public:
    using TokenType = QXmlStreamReader::TokenType;

    explicit SaxReader(const QString &path);
    Q_DISABLE_COPY(SaxReader)

    TokenType readNext();
    void skipCurrentElement();
    TokenType tokenType() const { return m_token.type; }
    QStringRef name() { return m_buffer.converted(m_token.name); }
    QStringRef text()
    {
        return m_buffer.converted(std::string_view(m_texts).substr(m_token.begin, m_token.length));
    }
    qint64 lineNumber() const { return 0; }
    qint64 columnNumber() const { return 0; }

private:
    struct Token
    {
        TokenType type = QXmlStreamReader::NoToken;
        const char *name = ""; // in the parser's dictionary
        std::size_t begin = 0; // of the text, in m_texts
        std::size_t length = 0;
    };

    [[nodiscard]] bool hasWholeToken() const;
    void parseBlock();
    void addText(std::string_view piece);

    static xmlSAXHandler handler();

    QFile m_file;
    std::vector<char> m_block;
    std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> m_parser{nullptr, xmlFreeParserCtxt};
    std::vector<Token> m_queue;
    std::size_t m_next = 0;
    std::string m_texts;
    bool m_isEnded = false;
    Token m_token;
    Utf16Buffer m_buffer;
};

template <typename Token>
Token tokenIn(PugixmlReader &xml, Token (*tokenOf)(const QStringRef &))
{
    return tokenOf(xml.name());
}

template <typename Token>
Token tokenIn(SaxReader &xml, Token (*tokenOf)(const QStringRef &))
{
    return tokenOf(xml.name());
}

} // namespace Orvida::Benchmarks
