#include "tools/commands/ImportCommand.h"

#include "tools/ExitStatus.h"
#include "tools/InputFile.h"
#include "tools/Options.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QSet>

namespace Orvida::Tools {

namespace {

// Spreadsheets change line breaks inside of cells.
QString withLineFeeds(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

// Takes the translations of a table that are for the texts of a file, and says what is wrong with the others.
class Translations
{
public:
    Translations(const QVector<TranslatableText> &texts, const QString &tableName) : m_tableName(tableName)
    {
        for (const TranslatableText &text : texts) {
            m_texts.insert(text.name, text.text);
            if (text.isCaption)
                m_wanted.insert(text.name);
        }
    }

    /// False when the table lacks a column.
    bool take(const QVector<CsvText::Row> &rows)
    {
        const QStringList heads = rows.value(0).cells;
        QVector<int> columns;
        for (const char *name : {"record", "key", "field", "text", "translation"}) {
            columns << heads.indexOf(QLatin1String(name));
            if (columns.last() >= 0)
                continue;
            printError(m_tableName, {},
                       QStringLiteral("the table has no column %1").arg(QLatin1String(name)));
            printRemedy(QStringLiteral("keep the first line of the table that was exported"));
            return false;
        }
        for (const CsvText::Row &row : rows.mid(1)) {
            QStringList cells;
            for (const int column : qAsConst(columns))
                cells << row.cells.value(column);
            takeRow(row.line, {cells.at(0), cells.at(1), cells.at(2)}, cells.at(3), cells.at(4));
        }
        return true;
    }

    const QHash<TextName, QString> &byName() const { return m_translations; }
    bool hasRefused() const { return m_hasRefused; }
    /// Of the texts in the table, and those that people read.
    int untranslatedCount() const { return m_wanted.size() - m_translations.size(); }

private:
    void takeRow(int line, const TextName &name, const QString &text, const QString &translation)
    {
        const auto current = m_texts.constFind(name);
        const QString title = QStringLiteral("%1 %2 %3").arg(name.record, name.key, name.field);
        if (current == m_texts.constEnd())
            refuse(line, QStringLiteral("the catalog has no text %1").arg(title));
        else if (withLineFeeds(*current) != withLineFeeds(text))
            refuse(line, QStringLiteral("%1 is %2 in the catalog, and not %3; the row is not taken")
                             .arg(title, quoted(*current), quoted(text)));
        else if (m_translations.contains(name))
            refuse(line, QStringLiteral("%1 is translated above already; the row is not taken").arg(title));
        else
            takeTranslation(name, withLineFeeds(translation));
    }

    void takeTranslation(const TextName &name, const QString &translation)
    {
        m_wanted.insert(name);
        if (!translation.isEmpty())
            m_translations.insert(name, translation);
    }

    void refuse(int line, const QString &text)
    {
        printWarning(m_tableName, {line, 1}, text);
        m_hasRefused = true;
    }

    const QString m_tableName;
    QHash<TextName, QString> m_texts;
    QSet<TextName> m_wanted;
    QHash<TextName, QString> m_translations;
    bool m_hasRefused = false;
};

} // namespace

void ImportCommand::addOptions(CLI::App &command)
{
    m_options.addTo(command);
    addText(command, "TABLE", m_tableName, "The table that export wrote, with translations");
}

int ImportCommand::run()
{
    if (!m_options.areUsable())
        return WrongUsage;
    if (m_options.output().isSameAs(m_tableName)) {
        printMessage(
            QStringLiteral("%1 is the table itself; give the catalog another name").arg(m_tableName));
        return WrongUsage;
    }
    InputFile input(m_options.fileName());
    if (!input.read()) {
        printFailure(input.name(), input.failure());
        return NotReadable;
    }
    const TranslatableTexts texts(input.bytes(), input.form(), TranslatableTexts::All);
    if (texts.failure()) {
        printFailure(input.name(), explained(*texts.failure(), input.path()));
        return NotReadable;
    }
    Translations translations(texts.texts(), m_tableName);
    QVector<CsvText::Row> rows;
    if (!readTable(rows) || !translations.take(rows))
        return NotReadable;
    QVector<TranslatableTexts::Note> left;
    const QByteArray document = texts.translated(translations.byName(), left);
    for (const auto &note : qAsConst(left))
        printWarning(input.name(), note.position, note.text);
    if (translations.untranslatedCount() > 0)
        printMessage(QStringLiteral("%1 without translation")
                         .arg(counted(translations.untranslatedCount(), QStringLiteral("text"))));
    return m_options.output().write(document,
                                    translations.hasRefused() || !left.isEmpty() ? AnswerIsNo : Done);
}

bool ImportCommand::readTable(QVector<CsvText::Row> &rows) const
{
    QFile file(m_tableName);
    if (m_tableName.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        printFailure(m_tableName,
                     unreadable(m_tableName.isEmpty() ? QStringLiteral("No such file or directory")
                                                      : file.errorString()));
        return false;
    }
    const CsvText table(file.readAll());
    if (!table.errorText().isEmpty()) {
        printError(m_tableName, {table.errorLine(), 1}, table.errorText());
        printRemedy(QStringLiteral("save the table as CSV in UTF-8"));
        return false;
    }
    rows = table.rows();
    return true;
}

} // namespace Orvida::Tools
