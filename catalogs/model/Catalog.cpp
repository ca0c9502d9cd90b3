#include "catalogs/model/Catalog.h"

#include "catalogs/model/OrphanReport_p.h"
#include "catalogs/model/ParentLoops_p.h"

#include <utility>

namespace Orvida::Catalogs {

Catalog::Catalog(QString catalogId)
    : m_catalogId(std::move(catalogId)), m_parentLoops(std::make_unique<ParentLoops>())
{
}

Catalog::~Catalog()
{
    m_parentLoops->cut();
    // Items that the host keeps must not look for their profile in a destroyed catalog.
    for (const QSharedPointer<CatalogItem> &item : std::as_const(m_items)) {
        if (item && item->catalog() == this)
            item->setCatalog(nullptr);
    }
    // Release the root last: destruction then walks the tree depth-first instead of in hash order, which is
    // about 50 % slower.
    const QSharedPointer<CatalogItem> root = m_items.value(QString());
    m_itemsByCode.clear();
    m_items.clear();
}

void Catalog::setStatus(CatalogStatus status)
{
    m_status = status;
    if (status == Loaded)
        buildRelations();
}

void Catalog::setContinousDefectCodes(const QString &profile, const QHash<QString, QString> &codes)
{
    m_continousDefectCodes.insert(profile, codes);
}

void Catalog::buildRelations()
{
    m_parentLoops->find(m_items);
    OrphanReport orphans(m_catalogId);
    for (const QSharedPointer<CatalogItem> &item : std::as_const(m_items)) {
        if (!item)
            continue;
        item->setCatalog(this);
        if (item->id().isEmpty()) {
            m_itemsByCode.insert(item->code(), item);
            continue;
        }
        const auto parent = m_items.constFind(item->parentId());
        if (parent != m_items.constEnd() && *parent)
            (*parent)->addChildItem(item);
        else
            orphans.add(*item);
        if (!item->code().isEmpty())
            registerCode(item);
    }
    orphans.write();
}

QStringList Catalog::codes() const
{
    QStringList codes;
    codes.reserve(m_itemsByCode.size());
    for (auto item = m_itemsByCode.cbegin(); item != m_itemsByCode.cend(); ++item) {
        // A look-up of an unknown code has left an empty pointer.
        if (*item && !item.key().isEmpty())
            codes.append(item.key());
    }
    codes.sort();
    return codes;
}

// The first item with a code answers for it, until a child of that item has the same code.
void Catalog::registerCode(const QSharedPointer<CatalogItem> &item)
{
    QSharedPointer<CatalogItem> &registered = m_itemsByCode[item->code()];
    if (!registered || registered->id() == item->parentId())
        registered = item;
}

} // namespace Orvida::Catalogs
