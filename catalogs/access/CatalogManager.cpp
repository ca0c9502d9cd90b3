#include "catalogs/access/CatalogManager.h"

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include <QMetaType>
#include <QMutexLocker>

#include <atomic>

namespace Orvida::Catalogs {

namespace {

constexpr qint64 styleSupports3D = Q_INT64_C(0x80000000);

// Whether the manager has been destroyed, at the end of the process.
std::atomic<bool> hasEnded = false;

} // namespace

CatalogManager::CatalogManager() = default;

CatalogManager::~CatalogManager()
{
    hasEnded = true;
}

CatalogManager *CatalogManager::instance()
{
    static CatalogManager manager;
    if (!hasEnded)
        return &manager;
    // For static objects of the host that are destroyed after the manager. Nothing would destroy this one in
    // time, so nothing does.
    static auto *const lateManager = new CatalogManager;
    return lateManager;
}

QString CatalogManager::findFileNameById(const QString &catalogId)
{
    return CatalogConfigData::findCatalogPath(catalogId);
}

CatalogSptr CatalogManager::getCatalog(QString catalogId)
{
    const QMutexLocker lock(&m_mutex);
    const auto cached = m_catalogs.constFind(catalogId);
    if (cached != m_catalogs.constEnd())
        return *cached;
    CatalogSptr catalog = CatalogLoader().loadCatalog(findFileNameById(catalogId), catalogId);
    if (catalog && catalog->status() != Catalog::LoadFailed) {
        m_catalogs.insert(catalogId, catalog);
        Q_EMIT catalogReady(catalog);
    } else {
        Q_EMIT failedToLoadCatalog(catalogId);
    }
    return catalog;
}

bool CatalogManager::is3DSupportedCatalog(QString catalogId)
{
    {
        const QMutexLocker lock(&m_stylesMutex);
        const auto known = m_catalogStyles.constFind(catalogId);
        if (known != m_catalogStyles.constEnd())
            return *known & styleSupports3D;
    }
    // Read without the lock, so that nobody waits for another catalog's file. When two threads read the
    // same file at once, the first answer stays.
    const qint64 style = CatalogXMLParser().readCatalogStyleFlag(findFileNameById(catalogId));
    const QMutexLocker lock(&m_stylesMutex);
    const auto known = m_catalogStyles.constFind(catalogId);
    if (known != m_catalogStyles.constEnd())
        return *known & styleSupports3D;
    m_catalogStyles.insert(catalogId, style);
    return style & styleSupports3D;
}

void CatalogManager::registerMetaTypes()
{
    qRegisterMetaType<CatalogSptr>("CatalogSptr");
    qRegisterMetaType<Base::GUID>("Orvida::Base::GUID");
}

} // namespace Orvida::Catalogs
