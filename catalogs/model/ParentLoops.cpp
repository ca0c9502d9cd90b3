#include "catalogs/model/ParentLoops_p.h"

#include <new>
#include <utility>

namespace Orvida::Catalogs {

// Each walk goes up from an item until it meets the root, an orphan, or an item that was visited before. When
// that item belongs to the same walk, the walk has come full circle.
void ParentLoops::find(const Items &items)
{
    QHash<const CatalogItem *, int> walkOf;
    walkOf.reserve(items.size());
    int walk = 0;
    for (QSharedPointer<CatalogItem> item : items) {
        ++walk;
        while (item && !item->id().isEmpty() && !walkOf.contains(item.data())) {
            walkOf.insert(item.data(), walk);
            const QSharedPointer<CatalogItem> parent = items.value(item->parentId());
            if (parent && walkOf.value(parent.data()) == walk)
                m_closingLinks.append({parent, item});
            item = parent;
        }
    }
}

void ParentLoops::cut()
{
    for (const Link &link : std::as_const(m_closingLinks)) {
        try {
            link.parent->removeChildItem(link.child);
        } catch (const std::bad_alloc &) {
            // The host has a copy of this list, and there is no memory to part the two: the loop stays.
        }
    }
}

} // namespace Orvida::Catalogs
