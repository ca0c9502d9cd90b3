#include "catalogs/building/ListLookup_p.h"

#include "catalogs/LogCategories_p.h"
#include "catalogs/building/CatalogListItem.h"
#include "catalogs/model/Catalog.h"
#include "catalogs/model/SortOrdering_p.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "shared/CLogger.h"

namespace Orvida::Catalogs {

namespace {

using Logging::CLogger;
// Plain entries: the placeholder of a catalog's entry is lost when it is put into the list.
using Entries = QList<Shared::ListItem>;
using Items = QList<CatalogParserListItem>;
using Parameters = QHash<QString, CatalogParserParameter>;

// The list class with this id holds continuous-defect codes.
const QString continousDefectClassId = QStringLiteral("LC_ID_CD");

// Bits of a list class that choose the value of its entries.
constexpr int valueIsInternal = 0x20;
constexpr int valueIsCaption = 0x01;

int sortOrderOfListItem(const CatalogParserListItem &item)
{
    return item.sortOrder;
}

const QString &keyOf(const CatalogParserListItem &item, int typeFlags)
{
    if (typeFlags & valueIsInternal && !item.internal.trimmed().isEmpty())
        return item.internal;
    return typeFlags & valueIsCaption ? item.caption : item.item;
}

QString placeHolderOf(const CatalogParserListItem &item, const Parameters &parameters)
{
    const auto parameter = parameters.constFind(item.paramId);
    return parameter == parameters.constEnd() ? QString() : parameter->placeholder;
}

Entries valueEntries(const CatalogParserListClass &listClass, const Items &items,
                     const Parameters &parameters)
{
    CLogger::logMessage(CLogger::Info, catalogLoaderCategory,
                        QStringLiteral("Creating items for list: ") + listClass.classId);
    Entries entries;
    entries.reserve(items.size());
    for (const CatalogParserListItem &item : items)
        entries.append(CatalogListItem(keyOf(item, listClass.typeFlags), item.caption, item.item,
                                       placeHolderOf(item, parameters)));
    return entries;
}

Entries defectEntries(const CatalogParserListClass &listClass, const Items &items,
                      const Parameters &parameters, Catalog &catalog)
{
    Entries entries;
    entries.reserve(items.size());
    QHash<QString, QString> codes;
    for (const CatalogParserListItem &item : items) {
        entries.append(
            CatalogListItem(item.internal, item.caption, item.item, placeHolderOf(item, parameters)));
        codes.insert(item.internal, item.item);
    }
    catalog.setContinousDefectCodes(listClass.profileFk, codes);
    return entries;
}

} // namespace

ListLookup buildListLookup(CatalogXMLParser &parser, Catalog &catalog)
{
    ListLookup lists;
    for (const CatalogParserListClass &listClass : qAsConst(parser.m_listClasses)) {
        // Two classes with one key share these items and order them twice: that moves equal ones again, and
        // hosts see it.
        Items &items = parser.m_listItems[listClass.pk];
        orderBySortOrder(items, sortOrderOfListItem);
        lists[listClass.profileFk][listClass.classId] =
            listClass.classId == continousDefectClassId
                ? defectEntries(listClass, items, parser.m_parameters, catalog)
                : valueEntries(listClass, items, parser.m_parameters);
    }
    return lists;
}

} // namespace Orvida::Catalogs
