#include "tools/layout/CatalogLayout.h"

#include "tools/FieldTexts.h"
#include "tools/TextRewriter.h"
#include "tools/layout/LayoutPieces.h"

#include <QStringList>

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;

// Whether a record is short is told by its fields and not by its length, so that both forms of a catalog have
// the same lines.
constexpr int mostFieldsOnOneLine = 6;

const QString margin = QStringLiteral("  ");

// Fields with the comments that belong to them.
struct Group
{
    QVector<LayoutPiece> pieces;
    const CatalogFormat::Field *field = nullptr; // null: comments after the last field
};

// Comments belong to the field below; those on the line of a field to that one.
QVector<Group> groupsOf(const QVector<LayoutPiece> &pieces)
{
    QVector<Group> groups;
    bool isOpen = false;
    for (const LayoutPiece &piece : pieces) {
        const bool isBeside = piece.isComment && piece.lineBreaks == 0 && !groups.isEmpty();
        if (!isOpen && !isBeside)
            groups.append(Group());
        groups.last().pieces.append(piece);
        if (!piece.isComment)
            groups.last().field = piece.field;
        isOpen = groups.last().field == nullptr;
    }
    return groups;
}

bool isBefore(const Group &a, const Group &b)
{
    // The rows of one record's table are in one array; comments at the end stay there.
    return a.field && b.field ? a.field < b.field : a.field != nullptr && b.field == nullptr;
}

QLatin1String lineBreakOf(const QString &text)
{
    for (const char *lineBreak : {"\r\n", "\n", "\r"}) {
        if (text.contains(QLatin1String(lineBreak)))
            return QLatin1String(lineBreak);
    }
    return QLatin1String("\n");
}

class Writer
{
public:
    explicit Writer(const QString &text) : m_text(text), m_lineBreak(lineBreakOf(text)) {}

    QString write(const LayoutPieces &pieces)
    {
        m_result = m_text.left(pieces.rootTagEnd);
        bool isFirst = true;
        for (const LayoutPiece &piece : pieces.inRoot) {
            const bool isBeside = piece.isComment && piece.lineBreaks == 0 && !isFirst;
            if (isBeside)
                m_result += QLatin1Char(' ');
            else
                startLine(1, piece.lineBreaks > 1 ? 2 : 1);
            if (piece.canBeLaidOut)
                writeRecord(piece);
            else
                m_result += textOf(piece);
            isFirst = false;
        }
        m_result += m_lineBreak;
        return m_result + m_text.mid(pieces.rootEnd);
    }

private:
    void writeRecord(const LayoutPiece &record);
    bool isOnOneLine(const LayoutPiece &record) const;

    void startLine(int level, int lineBreaks = 1)
    {
        m_result += m_lineBreak.repeated(lineBreaks) + margin.repeated(level);
    }
    QString textOf(const LayoutPiece &piece) const
    {
        return m_text.mid(piece.begin, piece.end - piece.begin);
    }

    const QString &m_text;
    const QString m_lineBreak;
    QString m_result;
};

void Writer::writeRecord(const LayoutPiece &record)
{
    QVector<Group> groups = groupsOf(record.inside);
    std::stable_sort(groups.begin(), groups.end(), isBefore);
    const bool isShort = isOnOneLine(record);
    m_result += m_text.mid(record.begin, record.startTagEnd - record.begin);
    for (const Group &group : qAsConst(groups)) {
        for (int i = 0; i < group.pieces.size(); ++i) {
            const LayoutPiece &piece = group.pieces.at(i);
            const bool isBeside = piece.isComment && i > 0 && piece.lineBreaks == 0;
            if (isBeside)
                m_result += QLatin1Char(' ');
            else if (!isShort)
                startLine(2);
            m_result += textOf(piece);
        }
    }
    if (!isShort)
        startLine(1);
    m_result += m_text.mid(record.endTagBegin, record.end - record.endTagBegin);
}

// Only what was on one line stays there.
bool Writer::isOnOneLine(const LayoutPiece &record) const
{
    const bool hasComments = std::any_of(record.inside.cbegin(), record.inside.cend(),
                                         [](const LayoutPiece &piece) { return piece.isComment; });
    const QString text = textOf(record);
    return !hasComments && record.inside.size() <= mostFieldsOnOneLine && !text.contains(QLatin1Char('\n'))
           && !text.contains(QLatin1Char('\r'));
}

} // namespace

CatalogLayout::CatalogLayout(const QByteArray &document) : m_document(document)
{
    TextRewriter rewriter(document);
    m_failure = failureOf(findFieldTexts(document, rewriter.text()), rewriter);
    if (m_failure)
        return;
    const LayoutPieces pieces(rewriter.text());
    m_obstacle = pieces.obstacle;
    m_obstaclePosition = pieces.obstaclePosition;
    if (!m_obstacle.isEmpty() || pieces.inRoot.isEmpty())
        return;
    rewriter.replace(0, rewriter.text().size(), Writer(rewriter.text()).write(pieces));
    m_document = rewriter.result();
}

} // namespace Orvida::Tools
