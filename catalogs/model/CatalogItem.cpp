#include "catalogs/model/CatalogItem.h"

#include "catalogs/model/Catalog.h"
#include "catalogs/model/FieldTemplate_p.h"
#include "catalogs/model/SortOrdering_p.h"

#include <new>
#include <utility>
#include <vector>

namespace Orvida::Catalogs {

namespace {

using ChildItems = QList<QSharedPointer<CatalogItem>>;

// Child lists of destroyed items, waiting for the outermost destructor of this thread to release them.
thread_local std::vector<ChildItems> *waitingLists = nullptr;

// Releasing a child destroys it when nobody else holds it, and that would release its children in turn, as
// deep as the tree is. So only the outermost destructor releases; those that it causes hand their lists to
// it and are done.
void releaseChildren(ChildItems children)
{
    std::vector<ChildItems> waiting;
    waitingLists = &waiting;
    children.clear();
    while (!waiting.empty()) {
        const ChildItems released = std::move(waiting.back());
        waiting.pop_back();
    }
    waitingLists = nullptr;
}

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

CatalogItem::~CatalogItem()
{
    if (m_childItems.isEmpty())
        return;
    if (!waitingLists) {
        releaseChildren(std::move(m_childItems));
        return;
    }
    try {
        waitingLists->push_back(std::move(m_childItems));
    } catch (const std::bad_alloc &) {
        // No memory to wait in: the list goes with its item, one level deeper on the stack.
    }
}

void CatalogItem::addChildItem(const QSharedPointer<CatalogItem> &child)
{
    m_childItems.append(child);
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
    fieldsOf(profile).fields.append(field);
}

void CatalogItem::addFieldTemplate(FieldTemplate fieldTemplate)
{
    Q_ASSERT(m_fields.isEmpty());
    m_fieldTemplates.push_back(std::move(fieldTemplate));
}

QList<CatalogInputField> &CatalogItem::getFields()
{
    if (!m_catalog) {
        m_noFields.clear();
        return m_noFields;
    }
    ProfileFields &asked = fieldsOf(m_catalog->profile());
    if (!asked.isSorted) {
        orderBySortOrder(asked.fields, sortOrderOfField);
        asked.isSorted = true;
    }
    return asked.fields;
}

CatalogItem::ProfileFields &CatalogItem::fieldsOf(const QString &profile)
{
    const auto made = m_fields.find(profile);
    if (made != m_fields.end())
        return *made;
    ProfileFields result;
    for (const FieldTemplate &fieldTemplate : m_fieldTemplates)
        fieldTemplate.appendTo(result.fields, profile);
    return *m_fields.insert(profile, result);
}

} // namespace Orvida::Catalogs
