#include "tools/layout/LayoutPieces.h"

#include <QXmlStreamReader>

#include <utility>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;

// Old files have CR alone.
int lineBreaksIn(const QStringRef &space)
{
    const int count = space.count(QLatin1Char('\n'));
    return count > 0 ? count : space.count(QLatin1Char('\r'));
}

class Taker
{
public:
    Taker(const QString &text, LayoutPieces &pieces) : m_text(text), m_pieces(pieces), m_reader(text) {}

    void run()
    {
        while (m_pieces.obstacle.isEmpty() && !m_reader.atEnd()) {
            m_start = place();
            m_reader.readNext();
            takeToken();
        }
    }

private:
    void takeToken();
    void takeText();
    void takeComment();
    void startElement();
    void endElement();
    void begin(QVector<LayoutPiece> &pieces, bool isComment);
    void stop(const char *obstacle);

    // To know that a text ends, the reader has read one character more.
    int place() const
    {
        const bool isAhead = m_reader.isCharacters() && !m_reader.isCDATA();
        return static_cast<int>(m_reader.characterOffset()) - (isAhead ? 1 : 0);
    }
    QVector<LayoutPiece> &recordPieces() { return m_pieces.inRoot.last().inside; }

    const QString &m_text;
    LayoutPieces &m_pieces;
    QXmlStreamReader m_reader;
    int m_depth = 0; // of the element that is open; the root has 1
    int m_start = 0; // of the token
    int m_lineBreaks = 0;
    const CatalogFormat::Record *m_record = nullptr; // that is open
    bool m_isKept = false;                           // as it is
};

void Taker::takeToken()
{
    switch (m_reader.tokenType()) {
    case QXmlStreamReader::StartElement: startElement(); break;
    case QXmlStreamReader::EndElement: endElement(); break;
    case QXmlStreamReader::Characters: takeText(); break;
    case QXmlStreamReader::Comment: takeComment(); break;
    case QXmlStreamReader::DTD: stop("there is a document type, whose entities may hold elements"); break;
    case QXmlStreamReader::ProcessingInstruction:
    case QXmlStreamReader::EntityReference:
        if (m_depth == 1)
            stop("there is a processing instruction or a reference between the records");
        m_isKept = true;
        break;
    default: break;
    }
}

// White space goes; any other text keeps what it is in as it is.
void Taker::takeText()
{
    if (m_reader.isWhitespace() && !m_reader.isCDATA()) {
        if (m_depth <= 2)
            m_lineBreaks = lineBreaksIn(m_text.midRef(m_start, place() - m_start));
    } else if (m_depth == 1) {
        stop("there is text between the records");
    } else if (m_depth == 2) {
        m_isKept = true;
    }
}

void Taker::takeComment()
{
    if (m_depth == 1 || m_depth == 2) {
        begin(m_depth == 1 ? m_pieces.inRoot : recordPieces(), true);
        (m_depth == 1 ? m_pieces.inRoot : recordPieces()).last().end = place();
    }
}

void Taker::startElement()
{
    ++m_depth;
    if (m_depth == 1) {
        m_pieces.rootTagEnd = place();
        m_lineBreaks = 0;
    } else if (m_depth == 2) {
        begin(m_pieces.inRoot, false);
        m_pieces.inRoot.last().startTagEnd = place();
        m_record = CatalogFormat::record(m_reader.name());
        m_isKept = !m_record;
    } else if (m_depth == 3) {
        begin(recordPieces(), false);
        const CatalogFormat::Field *field = CatalogFormat::field(m_reader.name());
        recordPieces().last().field = field;
        m_isKept = m_isKept || !field || CatalogFormat::recordOf(*field) != m_record;
    } else {
        m_isKept = true;
    }
}

void Taker::endElement()
{
    if (m_depth == 1) {
        m_pieces.rootEnd = m_start;
    } else if (m_depth == 2) {
        LayoutPiece &record = m_pieces.inRoot.last();
        record.end = place();
        record.endTagBegin = m_start;
        record.canBeLaidOut = !m_isKept;
        m_lineBreaks = 0;
    } else if (m_depth == 3) {
        recordPieces().last().end = place();
        m_lineBreaks = 0;
    }
    --m_depth;
}

void Taker::begin(QVector<LayoutPiece> &pieces, bool isComment)
{
    LayoutPiece piece;
    piece.begin = m_start;
    piece.isComment = isComment;
    piece.lineBreaks = std::exchange(m_lineBreaks, 0);
    pieces.append(piece);
}

void Taker::stop(const char *obstacle)
{
    m_pieces.obstacle = QLatin1String(obstacle);
    m_pieces.obstaclePosition = {m_reader.lineNumber(), m_reader.columnNumber() + 1};
}

} // namespace

LayoutPieces::LayoutPieces(const QString &text)
{
    Taker(text, *this).run();
}

} // namespace Orvida::Tools
