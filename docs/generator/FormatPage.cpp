#include "docs/generator/FormatPage.h"

#include "catalogs/format/CatalogFormat.h"
#include "catalogs/reading/ScrambledText.h"
#include "docs/generator/PageParts.h"

namespace Orvida::Format {

namespace {

using Catalogs::CatalogFormat;
using Catalogs::ScrambledText;
using Field = CatalogFormat::Field;
using Kind = CatalogFormat::Kind;
using Record = CatalogFormat::Record;
using Use = CatalogFormat::Use;

template <typename... Arguments>
QString filled(const char *pattern, const Arguments &...arguments)
{
    return QString::fromUtf8(pattern).arg(arguments...);
}

// The link target that hosts of such pages make of the heading of a record.
QString anchorOf(const Record &record)
{
    const QString heading = record.name + QLatin1Char('-') + record.title;
    return heading.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

QString recordTable()
{
    QString table = QStringLiteral("| Record | Called | What it is for |\n|---|---|---|\n");
    for (const Record &record : CatalogFormat::records())
        table += filled("| [`%1`](#%2) | %3 | %4 |\n", record.name, anchorOf(record), record.title,
                        record.meaning);
    return table;
}

// Codes that name codes are left out: the host alone follows them.
bool isDrawn(const Field &field)
{
    const Field *named = CatalogFormat::field(field.names);
    return named && named->keySpace != CatalogFormat::KeySpace::Code;
}

QString picture()
{
    QString nodes;
    QString arrows;
    for (const Record &record : CatalogFormat::records()) {
        // Nothing names the catalog information, and it names nothing.
        if (&record != CatalogFormat::records().begin())
            nodes += filled("    %1[\"%1: %2\"]\n", record.name, record.title);
        for (const Field &field : record.fields) {
            if (isDrawn(field))
                arrows += filled(field.use == Use::Used ? "    %1 -- %2 --> %3\n" : "    %1 -. %2 .-> %3\n",
                                 record.name, field.name,
                                 CatalogFormat::recordOf(*CatalogFormat::field(field.names))->name);
        }
    }
    return filled("```mermaid\nflowchart LR\n%1%2```\n", nodes, arrows);
}

QString kindTable()
{
    QString table = QStringLiteral("| Written as | How | Left out or empty |\n|---|---|---|\n");
    for (const Kind kind : {Kind::Text, Kind::ScrambledText, Kind::Integer, Kind::Integer64, Kind::Boolean,
                            Kind::ParameterType, Kind::ColumnType})
        table += filled("| %1 | %2 | %3 |\n", CatalogFormat::title(kind), CatalogFormat::syntax(kind),
                        CatalogFormat::defaultValue(kind));
    return table;
}

QString requiredTable()
{
    QString table = QStringLiteral("| Record | Needs |\n|---|---|\n");
    for (const Record &record : CatalogFormat::records()) {
        QStringList names;
        for (const Field *field : record.requiredFields())
            names.append(filled("`%1`", field->name));
        table += filled("| `%1` | %2 |\n", record.name,
                        names.isEmpty() ? QStringLiteral("nothing") : names.join(QLatin1String(" and ")));
    }
    return table;
}

QString bits(int byte)
{
    return QString::number(byte, 2).rightJustified(8, QLatin1Char('0'));
}

// The scrambling of a word, byte by byte.
QString scramblingTable()
{
    const QString word = QStringLiteral("Béton");
    QString table = QStringLiteral("| Letter | Byte | In bits | Rotated left by | In bits | Written as |\n"
                                   "|---|---|---|---|---|---|\n");
    const QString scrambled = ScrambledText::encode(word);
    int index = 0;
    for (const QChar letter : word) {
        const QByteArray bytes = QString(letter).toUtf8();
        for (int i = 0; i < bytes.size(); ++i, ++index) {
            const int byte = uchar(bytes.at(i));
            const QString pair = scrambled.mid(2 * index, 2);
            table += filled("| %1 | %2 | %3 | %4 | %5 | `%6` |\n", i == 0 ? QString(letter) : QString(),
                            QString::number(byte, 16).toUpper(), bits(byte),
                            QString::number((index + 1) % 5 + 1), bits(pair.toInt(nullptr, 16)), pair);
        }
    }
    return table
           + filled("\nSo `<LIST_Caption>%1</LIST_Caption>` becomes `<LIST_Caption>%2</LIST_Caption>`.\n",
                    word, scrambled);
}

QString remarkOn(const Field &field)
{
    if (field.isRequired)
        return QStringLiteral("**required**");
    if (field.use == Use::Stored)
        return QStringLiteral("no effect");
    return field.use == Use::NotRead ? QStringLiteral("not read") : QString();
}

QString fieldTables()
{
    QString tables;
    for (const Record &record : CatalogFormat::records()) {
        tables += filled("### %1: %2\n\n%3\n\n", record.name, record.title, record.meaning);
        tables += QStringLiteral("| Field | Written as | | What it is for |\n|---|---|---|---|\n");
        for (const Field &field : record.fields)
            tables += filled("| `%1` | %2 | %3 | %4%5 |\n", field.name, CatalogFormat::title(field.kind),
                             remarkOn(field), field.meaning,
                             field.names.isEmpty() ? QString() : filled(" Refers to `%1`.", field.names));
        tables += filled("\nWhen a key repeats: %1\n\n", record.repeatedKeyMeaning);
    }
    tables.chop(1);
    return tables;
}

} // namespace

QString FormatPage::updated(const QString &page, QStringList &absent)
{
    return Docs::withParts(page,
                           {{QLatin1String("records"), recordTable},
                            {QLatin1String("picture"), picture},
                            {QLatin1String("kinds"), kindTable},
                            {QLatin1String("scrambling"), scramblingTable},
                            {QLatin1String("required"), requiredTable},
                            {QLatin1String("fields"), fieldTables}},
                           absent);
}

} // namespace Orvida::Format
