#include "tools/translation/CsvText.h"

#include <QTextCodec>

#include <algorithm>

namespace Orvida::Tools {

namespace {

const QLatin1Char quote('"');
const QLatin1Char apostrophe('\'');

// Whether a spreadsheet would take the cell for a formula without the apostrophes before it. Other cells with
// an apostrophe, such as names and quotations, stay as they are.
bool isFormula(const QString &cell)
{
    const auto start = std::find_if(cell.cbegin(), cell.cend(), [](QChar c) { return c != apostrophe; });
    return start != cell.cend() && QStringLiteral("=+-@\t\r").contains(*start);
}

QString guarded(const QString &cell)
{
    return isFormula(cell) ? apostrophe + cell : cell;
}

QString unguarded(const QString &cell)
{
    return cell.startsWith(apostrophe) && isFormula(cell) ? cell.mid(1) : cell;
}

QString cellText(const QString &text, QChar separator)
{
    QString cell = guarded(text);
    const bool needsQuotes = cell.contains(separator) || cell.contains(quote)
                             || cell.contains(QLatin1Char('\n')) || cell.contains(QLatin1Char('\r'))
                             || cell != cell.trimmed();
    if (!needsQuotes)
        return cell;
    return quote + cell.replace(quote, QStringLiteral("\"\"")) + quote;
}

// The first one in the heads, which have none themselves.
QChar separatorOf(const QString &text)
{
    for (const QChar c : text) {
        if (c == QLatin1Char(',') || c == QLatin1Char(';') || c == QLatin1Char('\t'))
            return c;
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            break;
    }
    return QLatin1Char(',');
}

class RowReader
{
public:
    explicit RowReader(const QString &text) : m_text(text), m_separator(separatorOf(text)) {}

    QVector<CsvText::Row> read()
    {
        while (m_place < m_text.size())
            take(m_text.at(m_place++));
        endRow();
        return m_rows;
    }

    /// The line of a quotation mark that is not closed; 0 when all are.
    int openLine() const { return m_openLine; }

private:
    void take(QChar c)
    {
        m_line += isLineEnd(c);
        if (m_openLine > 0)
            takeQuoted(c);
        else if (c == quote && m_cell.isEmpty())
            m_openLine = m_line;
        else if (c == m_separator)
            endCell();
        else if (isLineEnd(c))
            endRow();
        else if (c != QLatin1Char('\r'))
            m_cell += c;
    }

    // Of CR LF, the second; a CR alone, as old spreadsheets write it, too.
    bool isLineEnd(QChar c) const
    {
        const bool isPair = m_place < m_text.size() && m_text.at(m_place) == QLatin1Char('\n');
        return c == QLatin1Char('\n') || (c == QLatin1Char('\r') && !isPair);
    }

    void takeQuoted(QChar c)
    {
        const bool isTwo = c == quote && m_place < m_text.size() && m_text.at(m_place) == quote;
        if (c == quote && !isTwo) {
            m_openLine = 0;
            return;
        }
        m_cell += c;
        m_place += isTwo;
    }

    void endCell()
    {
        m_row.cells << unguarded(m_cell);
        m_cell.clear();
    }

    void endRow()
    {
        endCell();
        if (!m_row.cells.join(QString()).isEmpty())
            m_rows << m_row;
        m_row = {m_line, {}};
    }

    const QString &m_text;
    const QChar m_separator;
    int m_place = 0;
    int m_line = 1;
    int m_openLine = 0;
    QString m_cell;
    CsvText::Row m_row{1, {}};
    QVector<CsvText::Row> m_rows;
};

} // namespace

QByteArray CsvText::written(const QVector<QStringList> &rows, Dialect dialect)
{
    const bool isForExcel = dialect == Dialect::Excel;
    const QLatin1Char separator(isForExcel ? ';' : ',');
    QByteArray text = isForExcel ? "\xEF\xBB\xBF" : "";
    for (const QStringList &row : rows) {
        QStringList cells;
        for (const QString &cell : row)
            cells << cellText(cell, separator);
        text += cells.join(separator).toUtf8() + (isForExcel ? "\r\n" : "\n");
    }
    return text;
}

CsvText::CsvText(const QByteArray &text)
{
    QTextCodec::ConverterState state;
    const QString decoded =
        QTextCodec::codecForName("UTF-8")->toUnicode(text.constData(), text.size(), &state);
    RowReader reader(decoded);
    if (state.invalidChars > 0 || state.remainingChars > 0) {
        m_errorText = QStringLiteral("the table is not in UTF-8");
        return;
    }
    m_rows = reader.read();
    m_errorLine = reader.openLine();
    if (m_errorLine > 0)
        m_errorText = QStringLiteral("the quotation mark that begins a cell here is not closed");
}

} // namespace Orvida::Tools
