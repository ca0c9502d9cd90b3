// The order in which the tool shows what a catalog holds.
//
// Hosts see equal sort orders in an order that depends on the hash seed of their process. The tool must
// print the same for every seed, so it settles such ties itself; nothing else differs from the host's view.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QList>
#include <QSharedPointer>

namespace Orvida::Tools {

/// The children of `item` by sort order; equal ones by code, then by id.
QList<QSharedPointer<Catalogs::CatalogItem>> displayedChildren(Catalogs::CatalogItem &item);

/// The fields of `item` for the current profile by sort order; equal ones by column, then by all the rest.
QList<Catalogs::CatalogInputField> displayedFields(Catalogs::CatalogItem &item);

/// Every item: the root, what hangs below it as the tree shows it, then the items outside the tree by id.
QList<QSharedPointer<Catalogs::CatalogItem>> displayedItems(Catalogs::Catalog &catalog);

/// Visits everything below `root` in display order, without recursion, so that the depth of a catalog does
/// not matter: `visit(item, depth, isLast)`, depth from 0, `isLast` among the siblings.
template <typename Visit>
void walkTree(const QSharedPointer<Catalogs::CatalogItem> &root, Visit visit)
{
    struct Level
    {
        QList<QSharedPointer<Catalogs::CatalogItem>> items;
        int next = 0;
    };
    QList<Level> levels{{displayedChildren(*root), 0}};
    while (!levels.isEmpty()) {
        Level &level = levels.last();
        if (level.next == level.items.size()) {
            levels.removeLast();
            continue;
        }
        const QSharedPointer<Catalogs::CatalogItem> item = level.items.at(level.next++);
        visit(item, levels.size() - 1, level.next == level.items.size());
        if (!item->getChildItems().isEmpty())
            levels.append({displayedChildren(*item), 0});
    }
}

} // namespace Orvida::Tools
