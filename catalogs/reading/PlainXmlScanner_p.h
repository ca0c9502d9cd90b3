// Reads plain XML in a fraction of the time that QXmlStreamReader takes. For the reader's own use.
#pragma once

#include <QString>
#include <QStringRef>
#include <QXmlStreamReader>

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

class QIODevice;

namespace Orvida::Catalogs {

/// A pull reader for documents that are plain XML; its operations are those of QXmlStreamReader.
///
/// Plain is a document in UTF-8, with or without a byte-order mark, of elements, attributes, text, the five
/// predefined entities, numeric references and comments, with lines that end in LF or CR LF. All else gives
/// the token `Invalid`, whether it is well-formed or not: document types, CDATA, processing instructions,
/// namespaces, names beyond ASCII, references in attributes, a lone CR, anything out of proportion.
///
/// A document that is read to `EndDocument` is well-formed for QXmlStreamReader, too, and gives the same
/// tokens, names and texts there. The scanner knows no positions and no reasons: to get these, and to read
/// what is not plain, read the document with QXmlStreamReader from its start.
///
/// However long the document is, memory is bounded by a block, a token and a few names.
class PlainXmlScanner
{
public:
    using TokenType = QXmlStreamReader::TokenType;
    static constexpr int usualBlock = 16 * 1024;

    /// Reads `device`, which is open and outlives the scanner, in blocks of `blockSize` bytes, at least one.
    /// A scanner that does not keep texts, so that text() is empty, only tells whether a document is plain.
    explicit PlainXmlScanner(QIODevice &device, int blockSize = usualBlock, bool keepsText = true)
        : m_device(device), m_blockSize(blockSize), m_keepsText(keepsText)
    {
    }
    Q_DISABLE_COPY(PlainXmlScanner)

    /// Reads the next token, which is `Invalid` also when the device fails. Stays at `Invalid` and
    /// `EndDocument`.
    TokenType readNext();
    /// Reads on to the end tag of the innermost element that is open, or, outside the root, of the document.
    void skipCurrentElement();

    TokenType tokenType() const { return m_type; }
    bool hasError() const { return m_type == QXmlStreamReader::Invalid; }
    /// The name in a start or end tag; empty at other tokens. Valid as long as the scanner.
    QStringRef name() const { return m_name ? QStringRef(&m_name->text) : QStringRef(); }
    /// What a caller has looked up for the name in a start tag, and by which function. It is kept with the
    /// name, which repeats throughout a document.
    std::pair<void (*)(), int> &lookUpOfName() { return m_name->lookUp; }
    /// The text of `Characters`; empty at other tokens, also at comments. Valid until the next token.
    QStringRef text() const { return QStringRef(&m_text, 0, m_textLength); }
    /// The number of the current token in place of its line, which the scanner does not know.
    /// QXmlStreamReader is at the same token after as many calls of its `readNext()`.
    qint64 lineNumber() const { return m_tokenCount; }
    qint64 columnNumber() const { return 0; }

    /// How many bytes of the document are read: up to the end of the current token, which is not `Invalid`.
    qint64 offset() const { return m_dropped + (m_next - m_buffer.data()); }
    /// The bytes from `start` on, which was offset() before the current token was read. Valid until the next
    /// token.
    std::string_view bytesFrom(qint64 start) const
    {
        return {reinterpret_cast<const char *>(m_buffer.data()) + (start - m_dropped),
                static_cast<std::size_t>(offset() - start)};
    }

private:
    // Of the length and the number of element names, and of nesting. No catalog comes near it.
    static constexpr std::size_t limit = 256;

    // A name of elements, and the name in the start tag that followed the last of them.
    struct Name
    {
        std::string bytes;
        QString text;
        Name *follower = nullptr;
        std::pair<void (*)(), int> lookUp;
    };

    [[nodiscard]] bool readMore();
    // The steps of readNext(). Inlining them there saves a seventh of the instructions.
    inline TokenType scan(const uchar *&at);
    inline TokenType scanStartTag(const uchar *&at);
    inline TokenType scanEndTag(const uchar *&at);
    inline TokenType scanText(const uchar *&at);
    inline Name *takeElementName(const uchar *&at);

    QIODevice &m_device;
    const int m_blockSize;
    const bool m_keepsText;
    // A zero byte, which belongs to no token, follows the bytes and stops every loop.
    std::vector<uchar> m_buffer = std::vector<uchar>(limit);
    const uchar *m_next = m_buffer.data(); // The bytes before it are read.
    const uchar *m_end = m_next;
    qint64 m_dropped = 0; // How many bytes were read before the first one in the buffer.
    bool m_isAllRead = false;

    TokenType m_type = QXmlStreamReader::NoToken;
    qint64 m_tokenCount = 0;
    bool m_isEmptyElement = false; // The end of the element is the next token, and has no bytes.
    // Has a place for each byte of the buffer. So it is longer than any text: of a whole string,
    // QStringRef::toString() would share the memory.
    QString m_text;
    int m_textLength = 0;
    Name *m_name = nullptr;
    Name m_start; // as if there were a start tag before the root
    Name *m_lastStarted = &m_start;
    std::unordered_map<std::string, Name> m_names;
    std::vector<Name *> m_openElements;
};

} // namespace Orvida::Catalogs
