#include "tools/ChangeJson.h"

#include "tools/ChangeText.h"
#include "tools/JsonText.h"

#include <QJsonArray>

namespace Orvida::Tools {

using Checking::CatalogChange;
using Checking::CatalogChangeClass;
using Checking::CatalogChangePlace;
using Checking::CatalogComparison;

namespace {

QJsonObject editionObject(const CatalogComparison &comparison, CatalogComparison::Edition edition,
                          const QString &fileName)
{
    return {{QStringLiteral("file"), fileName},
            {QStringLiteral("catalog"), comparison.catalogKey(edition)},
            {QStringLiteral("version"), comparison.version(edition)},
            {QStringLiteral("errors"), comparison.errorCount(edition)},
            {QStringLiteral("profiles"), QJsonArray::fromStringList(comparison.profiles(edition))}};
}

QJsonValue placeObject(const CatalogChangePlace &place)
{
    if (place.line == 0)
        return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("line"), place.line}, {QStringLiteral("column"), place.column}};
}

QJsonObject changeObject(const CatalogChange &change)
{
    QJsonObject object = {{QStringLiteral("id"), change.id},
                          {QStringLiteral("class"), className(change.changeClass)},
                          {QStringLiteral("subject"), change.subject},
                          {QStringLiteral("message"), change.message},
                          {QStringLiteral("profiles"), QJsonArray::fromStringList(change.profiles)},
                          {QStringLiteral("oldText"), jsonOf(change.oldText)},
                          {QStringLiteral("newText"), jsonOf(change.newText)},
                          {QStringLiteral("oldPlace"), placeObject(change.oldPlace)},
                          {QStringLiteral("newPlace"), placeObject(change.newPlace)}};
    const std::pair<const char *, const QString *> names[] = {
        {"code", &change.code}, {"column", &change.column}, {"list", &change.list}, {"value", &change.value}};
    for (const auto &[name, text] : names) {
        if (!text->isEmpty())
            object.insert(QLatin1String(name), *text);
    }
    if (change.codeCount > 0) {
        object.insert(QStringLiteral("codes"), QJsonArray::fromStringList(change.codes));
        object.insert(QStringLiteral("codeCount"), change.codeCount);
    }
    return object;
}

} // namespace

// One change per line: a million of them need not be held as one document.
void printChangeJson(CommandOutput &output, const CatalogComparison &comparison, const QString &oldName,
                     const QString &newName, bool listsAll)
{
    QJsonObject counts;
    for (int changeClass = 0; changeClass <= int(CatalogChangeClass::Hidden); ++changeClass)
        counts.insert(className(CatalogChangeClass(changeClass)),
                      comparison.count(CatalogChangeClass(changeClass)));
    output.write(
        "{\n\"old\": "
        + jsonText(editionObject(comparison, CatalogComparison::Old, oldName), QJsonDocument::Compact)
        + ",\n\"new\": "
        + jsonText(editionObject(comparison, CatalogComparison::New, newName), QJsonDocument::Compact)
        + ",\n\"counts\": " + jsonText(counts, QJsonDocument::Compact) + ",\n\"changes\": [");
    const char *separator = "\n";
    for (const CatalogChange &change : comparison.changes()) {
        if (change.changeClass == CatalogChangeClass::Hidden && !listsAll)
            continue;
        output.write(separator + jsonText(changeObject(change), QJsonDocument::Compact));
        separator = ",\n";
    }
    output.write("\n]\n}\n");
}

} // namespace Orvida::Tools
