#include "tools/ChangeTables.h"

#include "tools/ChangeText.h"

#include <QStringList>

#include <algorithm>

namespace Orvida::Tools {

using Checking::CatalogChange;
using Checking::CatalogChangeClass;
using Checking::CatalogChangePlace;
using Checking::CatalogRename;

namespace {

QString cell(const QString &text)
{
    const auto needsQuotes = [](QChar c) {
        return c == QLatin1Char(',') || c == QLatin1Char('"') || c == QLatin1Char('\n')
               || c == QLatin1Char('\r');
    };
    if (std::none_of(text.begin(), text.end(), needsQuotes))
        return text;
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QStringLiteral("\"\""))
           + QLatin1Char('"');
}

QByteArray row(const QStringList &texts)
{
    QStringList cells;
    for (const QString &text : texts)
        cells << cell(text);
    return cells.join(QLatin1Char(',')).toUtf8() + '\n';
}

// Spreadsheets compute what begins with one of these.
QString guarded(const QString &text)
{
    return !text.isEmpty() && QStringLiteral("=+-@\t\r").contains(text.at(0)) ? QLatin1Char('\'') + text
                                                                              : text;
}

QString number(qint64 value)
{
    return value > 0 ? QString::number(value) : QString();
}

} // namespace

// Row by row: a million of them need not be held at once.
void printChangeTable(CommandOutput &output, const Checking::CatalogComparison &comparison, bool listsAll)
{
    output.write("class,id,subject,profiles,message,old,new,oldLine,oldColumn,newLine,newColumn,codes\n");
    for (const CatalogChange &change : comparison.changes()) {
        if (change.changeClass == CatalogChangeClass::Hidden && !listsAll)
            continue;
        output.write(row({className(change.changeClass), change.id, guarded(change.subject),
                          guarded(change.profiles.join(QLatin1Char(' '))), guarded(change.message),
                          guarded(change.oldText), guarded(change.newText), number(change.oldPlace.line),
                          number(change.oldPlace.column), number(change.newPlace.line),
                          number(change.newPlace.column), number(change.codeCount)}));
    }
}

QByteArray renameTable(const QVector<CatalogRename> &renames, bool listsWeak)
{
    const char *const kinds[] = {"code", "column", "value", "defect-code", "profile"};
    const char *const certainties[] = {"certain", "likely", "weak"};
    QByteArray table = "kind,profile,list,old,new,certainty\n";
    for (const CatalogRename &rename : renames) {
        if (rename.certainty == CatalogRename::Weak && !listsWeak)
            continue;
        table += row({QLatin1String(kinds[rename.kind]), rename.profile, rename.list, rename.oldName,
                      rename.newName, QLatin1String(certainties[rename.certainty])});
    }
    return table;
}

} // namespace Orvida::Tools
