// Shows people the lines of a file.
#pragma once

#include <QFile>
#include <QString>
#include <QTextStream>

#include <optional>

namespace Orvida::Tools {

/// Reads the lines of an XML file in the encoding that it declares, from its start to its end, however long
/// they are.
class SourceLines
{
public:
    /// What is to be seen of a line.
    struct Excerpt
    {
        QString text;   ///< fit for a terminal, on which it takes one line
        int start = 0;  ///< cells of the terminal before the place
        int length = 1; ///< cells that the place takes, at least one
    };

    /// Of the file at `path`; without lines when it cannot be read.
    explicit SourceLines(const QString &path);

    /// What is around the place at `line` and `column`, both from 1, which ends before `endColumn`. None when
    /// the file has no such place, and when an earlier call was for one further down.
    std::optional<Excerpt> excerpt(qint64 line, qint64 column, qint64 endColumn);

private:
    bool readPiece();

    QFile m_file;
    QTextStream m_stream;
    QString m_piece;      ///< of the line: all of it, unless it is very long
    qint64 m_line = 0;    ///< number of the line
    qint64 m_skipped = 0; ///< how much of the line comes before the piece
};

} // namespace Orvida::Tools
