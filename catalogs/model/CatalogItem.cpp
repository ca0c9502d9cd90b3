#include "catalogs/model/CatalogItem.h"

#include "catalogs/model/Catalog.h"
#include "catalogs/model/SortOrdering_p.h"

#include <utility>

namespace Orvida::Catalogs {

struct CatalogItem::ReleasedChildren
{
    QList<QSharedPointer<CatalogItem>> children;
    // The list that was handed over before this one.
    ReleasedChildren *next = nullptr;
};

namespace {

int sortOrderOfItem(const QSharedPointer<CatalogItem> &item)
{
    return item ? item->sortOrder() : 0;
}

int sortOrderOfField(const CatalogInputField &field)
{
    return field.sortOrder();
}

} // namespace

CatalogItem::CatalogItem() = default;

// Releasing a child destroys it unless it is held elsewhere, and that would release its children in turn, as
// deep as the tree is. So only the outermost destructor of a thread releases; those that it causes hand their
// children to it.
CatalogItem::~CatalogItem()
{
    // With the usual model, the first use on a thread allocates memory if the library was opened by dlopen(),
    // and ends the process without it.
    [[gnu::tls_model("initial-exec")]] thread_local ReleasedChildren *waiting = nullptr;
    [[gnu::tls_model("initial-exec")]] thread_local bool isReleasing = false;

    if (!m_releasedChildren)
        return;
    m_releasedChildren->children.swap(m_childItems);
    m_releasedChildren->next = waiting;
    waiting = m_releasedChildren.release();
    if (isReleasing)
        return;
    isReleasing = true;
    while (waiting) {
        const std::unique_ptr<ReleasedChildren> released(waiting);
        waiting = released->next;
    }
    isReleasing = false;
}

void CatalogItem::addChildItem(const QSharedPointer<CatalogItem> &child)
{
    if (!m_releasedChildren)
        m_releasedChildren = std::make_unique<ReleasedChildren>();
    m_childItems.append(child);
}

void CatalogItem::removeChildItem(const QSharedPointer<CatalogItem> &child)
{
    m_childItems.removeAll(child);
}

const QList<QSharedPointer<CatalogItem>> &CatalogItem::getChildItems()
{
    if (!m_childItemsSorted) {
        orderBySortOrder(m_childItems, sortOrderOfItem);
        m_childItemsSorted = true;
    }
    return m_childItems;
}

void CatalogItem::addField(const QString &profile, const CatalogInputField &field)
{
    m_fields[profile].append(field);
}

QList<CatalogInputField> &CatalogItem::getFields()
{
    if (!m_catalog) {
        m_noFields.clear();
        return m_noFields;
    }
    const QString profile = m_catalog->profile();
    QList<CatalogInputField> &fields = m_fields[profile];
    if (!m_sortedProfiles.contains(profile)) {
        // Noted first: that takes memory, ordering does not, and ordering twice would move equal fields
        // again.
        m_sortedProfiles.insert(profile);
        orderBySortOrder(fields, sortOrderOfField);
    }
    return fields;
}

} // namespace Orvida::Catalogs
