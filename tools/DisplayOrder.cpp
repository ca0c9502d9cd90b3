#include "tools/DisplayOrder.h"

#include "tools/FieldJson.h"

#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <tuple>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;
using ItemPointer = QSharedPointer<CatalogItem>;

bool isItemBefore(const ItemPointer &a, const ItemPointer &b)
{
    const int orderA = a->sortOrder();
    const int orderB = b->sortOrder();
    return std::tie(orderA, a->code(), a->id()) < std::tie(orderB, b->code(), b->id());
}

// The JSON form holds everything of a field: fields that it cannot tell apart look the same.
QByteArray wholeText(const CatalogInputField &field)
{
    return QJsonDocument(fieldToJson(field)).toJson(QJsonDocument::Compact);
}

bool isFieldBefore(const CatalogInputField &a, const CatalogInputField &b)
{
    if (a.sortOrder() != b.sortOrder())
        return a.sortOrder() < b.sortOrder();
    if (a.boundColumn() != b.boundColumn())
        return a.boundColumn() < b.boundColumn();
    return wholeText(a) < wholeText(b);
}

} // namespace

QList<ItemPointer> displayedChildren(CatalogItem &item)
{
    QList<ItemPointer> children = item.getChildItems();
    std::stable_sort(children.begin(), children.end(), isItemBefore);
    return children;
}

QList<CatalogInputField> displayedFields(CatalogItem &item)
{
    QList<CatalogInputField> fields = item.getFields();
    std::stable_sort(fields.begin(), fields.end(), isFieldBefore);
    return fields;
}

QList<ItemPointer> displayedItems(Catalogs::Catalog &catalog)
{
    const ItemPointer root = catalog.getItemById(QString());
    QList<ItemPointer> items{root};
    walkTree(root, [&items](const ItemPointer &item, int, bool) { items.append(item); });

    const QSet<ItemPointer> inTree(items.cbegin(), items.cend());
    QList<ItemPointer> outside =
        (QSet<ItemPointer>(catalog.getCatalogItems().cbegin(), catalog.getCatalogItems().cend()) - inTree)
            .values();
    std::sort(outside.begin(), outside.end(),
              [](const ItemPointer &a, const ItemPointer &b) { return a->id() < b->id(); });
    return items + outside;
}

} // namespace Orvida::Tools
