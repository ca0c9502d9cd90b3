#include "catalogs/model/Catalog.h"

#include <QByteArray>

#include <cstdio>
#include <new>
#include <utility>

namespace Orvida::Catalogs {

namespace {

// Written to standard output, where catalog authors look for it, and flushed at once, so that it keeps its
// place among what the host writes there. Not by a QTextStream, which crashes when its constructor runs out
// of memory.
void reportOrphan(const CatalogItem &item, const QString &catalogId)
{
    const QString report = QStringLiteral("Parent of item: ") + item.caption()
                           + QStringLiteral(" not found!\nItem id: ") + item.id()
                           + QStringLiteral("\nCatalog id: ") + catalogId + QLatin1Char('\n');
    const QByteArray bytes = report.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

} // namespace

Catalog::Catalog(QString catalogId) : m_catalogId(std::move(catalogId)) {}

Catalog::~Catalog()
{
    cutLoops();
    // Items that the host keeps must not look for their profile in a catalog that is gone.
    for (const QSharedPointer<CatalogItem> &item : std::as_const(m_items)) {
        if (item && item->catalog() == this)
            item->setCatalog(nullptr);
    }
    // The root goes last. So nearly all items go with it, branch by branch, which is how they lie in memory;
    // the order of the tables would jump about in it and take half as long again.
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
    findParents();
    rememberLoops();
    for (const QSharedPointer<CatalogItem> &item : std::as_const(m_items)) {
        if (!item)
            continue;
        item->setCatalog(this);
        if (item->id().isEmpty()) {
            m_itemsByCode.insert(item->code(), item);
            continue;
        }
        if (item->m_parent)
            (*item->m_parent)->addChildItem(item);
        else
            reportOrphan(*item, m_catalogId);
        if (!item->code().isEmpty())
            registerCode(item);
    }
}

// Looks every parent up once for the steps that follow: in a large table, each look-up waits for memory.
void Catalog::findParents()
{
    for (const QSharedPointer<CatalogItem> &item : std::as_const(m_items)) {
        if (!item)
            continue;
        const auto parent = m_items.constFind(item->parentId());
        item->m_parent = parent == m_items.constEnd() || !*parent ? nullptr : &*parent;
        item->m_ancestorWalk = 0;
    }
}

// The first item with a code answers for it, until a child of that item has the same code.
void Catalog::registerCode(const QSharedPointer<CatalogItem> &item)
{
    QSharedPointer<CatalogItem> &registered = m_itemsByCode[item->code()];
    if (!registered || registered->id() == item->parentId())
        registered = item;
}

// Items on a parent loop hold each other and would outlive the catalog for good, so each loop is cut in one
// place when the catalog goes. The places are found before anything is linked, because remembering them takes
// memory, and there may be none any more in the middle of linking or in the destructor. Every item is walked
// over once: each walk goes up from an item until it meets the root, an orphan or an item that was walked
// over before, and it has found a loop when that is one of its own. Links of an earlier call stay remembered,
// as they are still there.
void Catalog::rememberLoops()
{
    int walk = 0;
    for (const QSharedPointer<CatalogItem> &start : std::as_const(m_items)) {
        ++walk;
        const QSharedPointer<CatalogItem> *item = start ? &start : nullptr;
        while (item && (*item)->m_ancestorWalk == 0 && !(*item)->id().isEmpty()) {
            (*item)->m_ancestorWalk = walk;
            const QSharedPointer<CatalogItem> *const parent = (*item)->m_parent;
            if (parent && (*parent)->m_ancestorWalk == walk)
                m_loopLinks.append({*parent, *item});
            item = parent;
        }
    }
}

void Catalog::cutLoops()
{
    for (const auto &[parent, child] : std::as_const(m_loopLinks)) {
        try {
            parent->m_childItems.removeAll(child);
        } catch (const std::bad_alloc &) {
            // The host has a copy of this list, and there is no memory to part the two: the loop stays.
        }
    }
}

} // namespace Orvida::Catalogs
