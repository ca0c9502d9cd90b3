#include "tools/CatalogJson.h"

#include "tools/DisplayOrder.h"
#include "tools/FieldJson.h"

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

QJsonObject fieldsOfProfiles(Catalog &catalog, CatalogItem &item, const QStringList &profiles)
{
    QJsonObject byProfile;
    for (const QString &profile : profiles) {
        catalog.setProfile(profile);
        QJsonArray fields;
        for (const CatalogInputField &field : displayedFields(item))
            fields.append(fieldToJson(field));
        if (!fields.isEmpty())
            byProfile.insert(profile, fields);
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
        {QStringLiteral("fields"), fieldsOfProfiles(catalog, item, profiles)},
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

QJsonObject catalogToJson(Catalog &catalog, const QStringList &profiles, qint64 style)
{
    const QString chosenProfile = catalog.profile();
    QJsonArray items;
    for (const ItemPointer &item : displayedItems(catalog))
        items.append(itemToJson(catalog, *item, profiles));
    const QJsonObject codes = codesOfProfiles(catalog, profiles);
    catalog.setProfile(chosenProfile);
    return {
        {QStringLiteral("style"), jsonOf(style)},
        {QStringLiteral("profile"), jsonOf(chosenProfile)},
        {QStringLiteral("profiles"), QJsonArray::fromStringList(profiles)},
        {QStringLiteral("continousDefectCodes"), codes},
        {QStringLiteral("items"), items},
    };
}

} // namespace Orvida::Tools
