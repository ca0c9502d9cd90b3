#include "tools/CatalogJson.h"

#include "tools/DisplayOrder.h"
#include "tools/FieldProperties.h"
#include "tools/JsonText.h"

#include <QJsonArray>
#include <QJsonValue>

namespace Orvida::Tools {

namespace {

using Catalogs::Catalog;
using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;
using ItemPointer = QSharedPointer<CatalogItem>;

QJsonArray childIds(CatalogItem &item)
{
    QJsonArray ids;
    for (const ItemPointer &child : displayedChildren(item))
        ids.append(jsonOf(child->id()));
    return ids;
}

QJsonObject fieldsToJson(Catalog &catalog, CatalogItem &item, const QStringList &profiles)
{
    QJsonObject byProfile;
    for (const QString &profile : profiles) {
        catalog.setProfile(profile);
        QJsonArray array;
        for (const CatalogInputField &field : qAsConst(item.getFields()))
            array.append(fieldToJson(field));
        if (!array.isEmpty())
            byProfile.insert(profile, array);
    }
    return byProfile;
}

QJsonObject itemToJson(Catalog &catalog, CatalogItem &item, const QStringList &profiles)
{
    return {
        {QStringLiteral("id"), jsonOf(item.id())},
        {QStringLiteral("parentId"), jsonOf(item.parentId())},
        {QStringLiteral("code"), jsonOf(item.code())},
        {QStringLiteral("caption"), jsonOf(item.caption())},
        {QStringLiteral("followers"), jsonOf(item.followers())},
        {QStringLiteral("item"), jsonOf(item.item())},
        {QStringLiteral("remarks"), jsonOf(item.remarks())},
        {QStringLiteral("iconId"), jsonOf(item.iconId())},
        {QStringLiteral("observationText"), jsonOf(item.observationText())},
        {QStringLiteral("closeCode"), jsonOf(item.closeCode())},
        {QStringLiteral("typeFlags"), static_cast<int>(item.typeFlags())},
        {QStringLiteral("sortOrder"), item.sortOrder()},
        {QStringLiteral("constructionType"), item.constructionType()},
        {QStringLiteral("autoPicture"), item.autoPicture()},
        {QStringLiteral("isVirtual"), item.isVirtual()},
        {QStringLiteral("children"), childIds(item)},
        {QStringLiteral("fields"), fieldsToJson(catalog, item, profiles)},
    };
}

QJsonObject codesOfProfiles(Catalog &catalog, const QStringList &profiles)
{
    QJsonObject byProfile;
    for (const QString &profile : profiles) {
        catalog.setProfile(profile);
        QJsonObject codes;
        const QHash<QString, QString> &table = catalog.getContinousDefectCodes();
        for (auto code = table.cbegin(); code != table.cend(); ++code)
            codes.insert(code.key(), jsonOf(code.value()));
        if (!codes.isEmpty())
            byProfile.insert(profile, codes);
    }
    return byProfile;
}

} // namespace

// The members before the items and those after them are written as objects of their own that lack a brace.
void CatalogJson::write(Catalog &catalog, const QStringList &profiles, qint64 style)
{
    const QJsonObject after{
        {QStringLiteral("style"), jsonOf(style)},
        {QStringLiteral("profile"), jsonOf(catalog.profile())},
        {QStringLiteral("profiles"), QJsonArray::fromStringList(profiles)},
    };
    const QJsonObject before{{QStringLiteral("continousDefectCodes"), codesOfProfiles(catalog, profiles)}};
    const bool isIndented = m_format == QJsonDocument::Indented;
    const int brace = isIndented ? 2 : 1; // with its line break
    QByteArray head = jsonText(before, m_format);
    head.chop(brace);
    m_write(head + (isIndented ? ",\n    \"items\": [\n" : ",\"items\":["));
    writeItems(catalog, profiles);
    m_write((isIndented ? "\n    ],\n" : "],") + jsonText(after, m_format).mid(brace) + '\n');
}

void CatalogJson::writeItems(Catalog &catalog, const QStringList &profiles)
{
    constexpr int margin = 8;
    const bool isIndented = m_format == QJsonDocument::Indented;
    QByteArray separator(isIndented ? margin : 0, ' ');
    for (const ItemPointer &item : displayedItems(catalog)) {
        m_write(separator + jsonText(itemToJson(catalog, *item, profiles), m_format, margin));
        separator = isIndented ? ",\n" + QByteArray(margin, ' ') : QByteArray(",");
    }
}

} // namespace Orvida::Tools
