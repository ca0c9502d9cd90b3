#include "tools/SourceLines.h"

#include "tools/OutputStyle.h"

#include <QStringView>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>

namespace Orvida::Tools {

namespace {

constexpr int longestPiece = 16 * 1024;
// Characters of an excerpt, and those of them before the place.
constexpr int width = 100;
constexpr int widthBefore = 60;

// A file that declares nothing, or nothing that is known, is in UTF-8.
QTextCodec *codecOf(QIODevice &file)
{
    QXmlStreamReader reader(&file);
    reader.readNext();
    QTextCodec *const codec = QTextCodec::codecForName(reader.documentEncoding().toLatin1());
    return codec ? codec : QTextCodec::codecForName("UTF-8");
}

// Without characters that are drawn over the one before them, and one for both halves of a surrogate pair.
int cellsOf(QStringView text)
{
    return int(std::count_if(text.begin(), text.end(), [](QChar c) {
        return !c.isLowSurrogate() && c.category() != QChar::Mark_NonSpacing;
    }));
}

} // namespace

SourceLines::SourceLines(const QString &path) : m_file(path)
{
    if (!m_file.open(QIODevice::ReadOnly))
        return;
    QTextCodec *const codec = codecOf(m_file);
    m_file.seek(0);
    m_stream.setDevice(&m_file);
    m_stream.setCodec(codec);
}

std::optional<SourceLines::Excerpt> SourceLines::excerpt(qint64 line, qint64 column, qint64 endColumn)
{
    while (m_line < line || (m_line == line && column - 1 > m_skipped + m_piece.size())) {
        if (!readPiece())
            return std::nullopt;
    }
    const qint64 place = column - 1 - m_skipped;
    if (m_line != line || place < 0)
        return std::nullopt;
    const int at = int(place);
    const int first = std::max(0, at - widthBefore);
    const int end =
        int(std::clamp<qint64>(endColumn - 1 - m_skipped, at, std::min(m_piece.size(), first + width)));
    const QString before = first > 0 ? QStringLiteral("…") : QString();
    const QString after = m_piece.size() > first + width ? QStringLiteral("…") : QString();
    Excerpt excerpt;
    excerpt.text = before + OutputStyle::singleLine(m_piece.mid(first, width)) + after;
    excerpt.start = before.size() + cellsOf(QStringView(m_piece).mid(first, at - first));
    excerpt.length = std::max(1, cellsOf(QStringView(m_piece).mid(at, end - at)));
    return excerpt;
}

bool SourceLines::readPiece()
{
    if (!m_stream.device() || m_stream.atEnd())
        return false;
    // A piece of this length is continued, be it by nothing.
    const bool isContinued = m_piece.size() == longestPiece;
    m_skipped = isContinued ? m_skipped + longestPiece : 0;
    m_line += isContinued ? 0 : 1;
    m_piece = m_stream.readLine(longestPiece);
    return true;
}

} // namespace Orvida::Tools
