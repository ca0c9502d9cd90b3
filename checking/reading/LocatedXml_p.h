// Readers of XML that know where they are. For the checker's own use.
#pragma once

#include "catalogs/reading/PlainXmlScanner_p.h"
#include "checking/reading/LocatedCatalog_p.h"

#include <QString>
#include <QStringList>
#include <QStringRef>
#include <QXmlStreamReader>

#include <string_view>

namespace Orvida::Checking {

/// A pull reader; its operations are those of QXmlStreamReader, the position apart.
class LocatedXml
{
public:
    using TokenType = QXmlStreamReader::TokenType;

    virtual ~LocatedXml();
    Q_DISABLE_COPY(LocatedXml)

    virtual TokenType readNext() = 0;

    TokenType tokenType() const { return m_type; }
    /// Right after the current token.
    Position position() const { return m_position; }
    /// Of a start tag, as QXmlStreamReader has them.
    qint64 lineNumber() const { return m_position.line; }
    qint64 columnNumber() const { return m_position.column - 1; }
    /// Both are valid until the next token.
    QStringRef name() const { return m_name; }
    QStringRef text() const { return m_text; }

    /// Of a start tag, the names of its attributes, as written. Those that are meant for other programs, such
    /// as xml:lang and xsi:schemaLocation, are left out.
    virtual QStringList attributeNames() const = 0;
    virtual bool isWhitespace() const = 0;
    virtual bool isCDATA() const = 0;
    virtual QString documentEncoding() const = 0;

protected:
    LocatedXml() = default;

    TokenType m_type = QXmlStreamReader::NoToken;
    Position m_position;
    QStringRef m_name;
    QStringRef m_text;
};

/// For a `RecordReader`: the token of the element on whose start tag `xml` is.
template <typename Token>
Token tokenIn(const LocatedXml &xml, Token (*tokenOf)(const QStringRef &))
{
    return tokenOf(xml.name());
}

/// Reads all XML.
class AnyXml : public LocatedXml
{
public:
    explicit AnyXml(QXmlStreamReader &reader) : m_reader(reader) {}

    TokenType readNext() override;
    QStringList attributeNames() const override;
    bool isWhitespace() const override { return m_reader.isWhitespace(); }
    bool isCDATA() const override { return m_reader.isCDATA(); }
    QString documentEncoding() const override { return m_reader.documentEncoding().toString(); }

private:
    QXmlStreamReader &m_reader;
};

/// Reads plain XML, and in a fraction of the time: the last token of a document that is not plain is
/// `Invalid`, and another reader has to begin again. The tokens and positions of a plain one are those of
/// `AnyXml`.
class PlainXml : public LocatedXml
{
public:
    explicit PlainXml(QIODevice &device) : m_scanner(device) {}

    TokenType readNext() override;
    QStringList attributeNames() const override;
    bool isWhitespace() const override;
    bool isCDATA() const override { return false; }
    QString documentEncoding() const override { return QStringLiteral("UTF-8"); }

private:
    void advance();

    Catalogs::PlainXmlScanner m_scanner;
    std::string_view m_bytes; ///< of the current token, and of white space before it outside of the root
    QString m_comment;
};

} // namespace Orvida::Checking
