#include "tools/commands/ExplainCommand.h"

#include "catalogs/format/CatalogFormat.h"
#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/NearNames.h"
#include "tools/Options.h"

#include <QStringList>
#include <QTextStream>

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;
using Field = CatalogFormat::Field;
using Record = CatalogFormat::Record;
using Use = CatalogFormat::Use;

void printProperty(QTextStream &out, const char *label, const QString &text)
{
    constexpr int labelWidth = 16;
    if (!text.isEmpty())
        out << "  " << QString::fromLatin1(label).leftJustified(labelWidth) << text << '\n';
}

QString inRecord(const Field &field)
{
    return QStringLiteral("%1 (%2)").arg(field.name, CatalogFormat::recordOf(field)->name);
}

// All fields of the format that fit.
template <typename Predicate>
QStringList fieldsWhere(Predicate fits)
{
    QStringList names;
    for (const Record &record : CatalogFormat::records()) {
        for (const Field &field : record.fields) {
            if (fits(field))
                names << inRecord(field);
        }
    }
    return names;
}

QString joined(const QStringList &names)
{
    return names.join(QStringLiteral(", "));
}

// The key that `field` names; others of its key space are found just as well.
QString namedBy(const Field &field)
{
    const Field *key = CatalogFormat::field(field.names);
    if (!key)
        return QString();
    const QStringList others = fieldsWhere(
        [key](const Field &other) { return other.keySpace == key->keySpace && other.name != key->name; });
    return inRecord(*key)
           + (others.isEmpty() ? QString() : QStringLiteral("; finds %1 as well").arg(joined(others)));
}

QString effectOf(const Field &field)
{
    switch (field.use) {
    case Use::Used: break;
    case Use::Stored: return QStringLiteral("none: a load reads it, but hosts see nothing of it");
    case Use::StyleQuery: return QStringLiteral("only on whether the catalog supports 3D");
    case Use::NotRead: return QStringLiteral("none: nothing reads it");
    }
    return QString();
}

void explain(QTextStream &out, const Field &field)
{
    const Record &record = *CatalogFormat::recordOf(field);
    out << field.name << ", a field of " << record.name << " (" << record.title << ")\n"
        << field.meaning << "\n\n";
    printProperty(out, "written as", CatalogFormat::title(field.kind));
    printProperty(out, "", CatalogFormat::syntax(field.kind));
    printProperty(out, "left out",
                  field.isRequired ? QStringLiteral("the whole file is refused")
                                   : QString(CatalogFormat::defaultValue(field.kind)));
    printProperty(out, "effect", effectOf(field));
    printProperty(out, "names", namedBy(field));
    if (field.keySpace != CatalogFormat::KeySpace::None)
        printProperty(out, "is named by", joined(fieldsWhere([&field](const Field &other) {
                          return other.names == field.name;
                      })));
}

QString markOf(const Field &field)
{
    if (field.isRequired)
        return QStringLiteral("required");
    if (field.use == Use::Stored)
        return QStringLiteral("no effect");
    return field.use == Use::NotRead ? QStringLiteral("not read") : QString();
}

void explain(QTextStream &out, const Record &record)
{
    out << record.name << ", a record: " << record.title << '\n' << record.meaning << "\n\n";
    QStringList references;
    for (const Field &field : record.fields) {
        if (const Field *key = CatalogFormat::field(field.names))
            references << QStringLiteral("%1 by %2").arg(inRecord(*key), field.name);
        out << "  " << QString(field.name).leftJustified(20)
            << QString(CatalogFormat::title(field.kind)).leftJustified(16) << markOf(field).leftJustified(11)
            << field.meaning << '\n';
    }
    out << '\n';
    printProperty(out, "key repeats", record.repeatedKeyMeaning);
    printProperty(out, "names", joined(references));
    printProperty(out, "is named by", joined(fieldsWhere([&record](const Field &field) {
                      const Field *key = CatalogFormat::field(field.names);
                      return key && CatalogFormat::recordOf(*key) == &record;
                  })));
}

void explainRoot(QTextStream &out, const QString &name)
{
    QStringList records;
    for (const Record &record : CatalogFormat::records())
        records << record.name;
    out << name << ", the root of a catalog file\nHolds all records, in any order: " << joined(records)
        << ".\n";
}

bool isRoot(const QString &name)
{
    const auto names = CatalogFormat::rootNames();
    return std::any_of(names.begin(), names.end(), [&name](QLatin1String root) { return name == root; });
}

QStringList allNames()
{
    QStringList names;
    for (const QLatin1String name : CatalogFormat::rootNames())
        names << name;
    for (const Record &record : CatalogFormat::records()) {
        names << record.name;
        for (const Field &field : record.fields)
            names << field.name;
    }
    return names;
}

} // namespace

void ExplainCommand::addOptions(CLI::App &command)
{
    addText(command, "ELEMENT", m_element, "Name of a record or of a field, such as COL or COL_Visible");
}

int ExplainCommand::run()
{
    CommandOutput output;
    if (const Field *field = CatalogFormat::field(QStringView(m_element)))
        explain(output.stream(), *field);
    else if (const Record *record = CatalogFormat::record(QStringView(m_element)))
        explain(output.stream(), *record);
    else if (isRoot(m_element))
        explainRoot(output.stream(), m_element);
    else
        return reportUnknown(QStringLiteral("element %1 in a catalog file"), m_element, allNames());
    return output.finish(Done);
}

} // namespace Orvida::Tools
