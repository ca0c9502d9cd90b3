#include "tools/DisplayOrder.h"

#include <QSet>

#include <algorithm>
#include <tuple>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogItem;
using ItemPointer = QSharedPointer<CatalogItem>;

bool isItemBefore(const ItemPointer &a, const ItemPointer &b)
{
    const int orderA = a->sortOrder();
    const int orderB = b->sortOrder();
    return std::tie(orderA, a->code(), a->id()) < std::tie(orderB, b->code(), b->id());
}

} // namespace

QList<ItemPointer> displayedChildren(CatalogItem &item)
{
    QList<ItemPointer> children = item.getChildItems();
    std::stable_sort(children.begin(), children.end(), isItemBefore);
    return children;
}

bool isTied(const QList<ItemPointer> &siblings, int index)
{
    const auto hasSameOrder = [&siblings, index](int neighbour) {
        return neighbour >= 0 && neighbour < siblings.size()
               && siblings.at(neighbour)->sortOrder() == siblings.at(index)->sortOrder();
    };
    return hasSameOrder(index - 1) || hasSameOrder(index + 1);
}

QList<ItemPointer> displayedItems(Catalogs::Catalog &catalog)
{
    const ItemPointer root = catalog.getItemById(QString());
    QList<ItemPointer> items{root};
    walkTree(root, [&items](const ItemPointer &item, const TreePlace &) { items.append(item); });

    const QSet<ItemPointer> inTree(items.cbegin(), items.cend());
    QList<ItemPointer> outside =
        (QSet<ItemPointer>(catalog.getCatalogItems().cbegin(), catalog.getCatalogItems().cend()) - inTree)
            .values();
    std::sort(outside.begin(), outside.end(),
              [](const ItemPointer &a, const ItemPointer &b) { return a->id() < b->id(); });
    return items + outside;
}

int countItems(const ItemPointer &root)
{
    int count = 0;
    walkTree(root, [&count](const ItemPointer &, const TreePlace &) { ++count; });
    return count;
}

} // namespace Orvida::Tools
