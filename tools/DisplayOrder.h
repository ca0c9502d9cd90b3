// The order in which the tool shows what a catalog holds.
//
// Hosts see siblings of equal sort order in an order that depends on the hash seed of their process. The tool
// must print the same for every seed, so it settles such ties itself; nothing else differs from the host's
// view.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QList>
#include <QSharedPointer>

namespace Orvida::Tools {

/// Where an item is in the tree.
struct TreePlace
{
    int depth = 0;       ///< From 0, for the children of the root.
    bool isLast = false; ///< Among its siblings.
    bool isTied = false; ///< A sibling has the same sort order: hosts show the two in any order.
};

/// The children of `item` by sort order; equal ones by code, then by id.
QList<QSharedPointer<Catalogs::CatalogItem>> displayedChildren(Catalogs::CatalogItem &item);

/// Whether the neighbour of the item at `index` in a list of `displayedChildren` has the same sort order.
bool isTied(const QList<QSharedPointer<Catalogs::CatalogItem>> &siblings, int index);

/// Every item: the root, the items below it in the order of the tree, then those outside the tree by id.
QList<QSharedPointer<Catalogs::CatalogItem>> displayedItems(Catalogs::Catalog &catalog);

/// Number of items below `root`.
int countItems(const QSharedPointer<Catalogs::CatalogItem> &root);

/// Visits everything below `root` in display order, without recursion, so that the depth of a catalog does
/// not matter: `visit(item, place)`.
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
        const int index = level.next++;
        const QSharedPointer<Catalogs::CatalogItem> item = level.items.at(index);
        visit(item,
              TreePlace{levels.size() - 1, level.next == level.items.size(), isTied(level.items, index)});
        if (!item->getChildItems().isEmpty())
            levels.append({displayedChildren(*item), 0});
    }
}

} // namespace Orvida::Tools
