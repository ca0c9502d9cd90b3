// Tables as text with separators, as spreadsheets read and write them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvida::Tools {

/// Writes and reads such tables in UTF-8. A cell that a spreadsheet would take for a formula is written with
/// an apostrophe, which reading takes away again.
class CsvText
{
public:
    struct Row
    {
        int line; ///< In the text, from 1.
        QStringList cells;
    };

    /// Who is to read what is written.
    enum class Dialect {
        Plain, ///< Commas, and nothing before the first cell.
        Excel, ///< Semicolons, a byte-order mark and CR LF, by which it takes the text for UTF-8.
    };

    static QByteArray written(const QVector<QStringList> &rows, Dialect dialect);

    /// Reads a table of either dialect, or with tabs. Lines without any text are left out.
    explicit CsvText(const QByteArray &text);

    const QVector<Row> &rows() const { return m_rows; }
    /// What is wrong with the text, empty when all is well, and in which line; 0 for the text as a whole.
    const QString &errorText() const { return m_errorText; }
    int errorLine() const { return m_errorLine; }

private:
    QVector<Row> m_rows;
    QString m_errorText;
    int m_errorLine = 0;
};

} // namespace Orvida::Tools
