// The one entry point of the library: hands out catalogs by their identifier.
#pragma once

#include "catalogs/CatalogsExport.h"
#include "catalogs/model/Catalog.h"
#include "shared/GUID.h"

#include <QHash>
#include <QMutex>
#include <QObject>
#include <QString>

namespace Orvida::Catalogs {

/// Loads every catalog once, keeps it for the life of the process, and announces each load.
///
/// Before the first request the host sets folder and provider on `CatalogConfigData`, takes the manager
/// with `instance()` and connects to its signals. All operations may be called from any thread. The
/// parameter types of the signals are not registered: a host that connects across threads calls
/// `registerMetaTypes`, or registers "CatalogSptr" and "Orvida::Base::GUID" itself, under exactly these
/// names.
class ORVIDA_CATALOGS_EXPORT CatalogManager : public QObject
{
    Q_OBJECT

public:
    /// The one manager; made on the first call, destroyed at process exit, and never by the host. Static
    /// objects of the host that are destroyed still later get another one, with an empty cache and without
    /// receivers.
    static CatalogManager *instance();

    /// The full path (not only the name) of the file of the catalog `catalogId`, as
    /// `CatalogConfigData::findCatalogPath` gives it.
    static QString findFileNameById(const QString &catalogId);

    /// The catalog `catalogId`, any text: from the cache, or loaded now, on the calling thread.
    ///
    /// When it cannot be loaded the result is the failed catalog (`IsValid()` is false, and `failure()` says
    /// why) and nothing is kept: the next call tries again. Identifiers are compared exactly, letter case
    /// included. One lock is held for the whole call, signals included: other callers wait, and a receiver
    /// that runs inside the emission must not call `getCatalog`. The caller shares the catalog with the cache
    /// and all others.
    ///
    /// Exceptions propagate and release the lock. From the provider or for lack of memory: nothing is kept
    /// and no signal was sent. From a receiver: a loaded catalog stays in the cache.
    CatalogSptr getCatalog(QString catalogId);

    /// Whether the catalog `catalogId` supports 3D, read from its file without loading it.
    ///
    /// False when the file or the mark in it is missing. The first answer for an identifier is kept
    /// for the life of the process. Does not wait for a running `getCatalog`.
    bool is3DSupportedCatalog(QString catalogId);

Q_SIGNALS:
    /// A catalog was loaded and is in the cache. Sent inside `getCatalog`, before it returns.
    void catalogReady(CatalogSptr catalog);
    /// The catalog with this identifier could not be loaded. Sent inside `getCatalog`, before it returns.
    void failedToLoadCatalog(Orvida::Base::GUID);

public:
    /// An addition: registers the parameter types of the signals for connections across threads, under the
    /// names "CatalogSptr" and "Orvida::Base::GUID". Only hosts call it, before such a signal is sent; the
    /// library never does. Any thread may call it, as often as it likes.
    static void registerMetaTypes();

private:
    CatalogManager();
    ~CatalogManager() override;

    // Loaded catalogs by the identifier they were asked for; guarded by m_mutex, never shrinks.
    QHash<QString, CatalogSptr> m_catalogs;
    // Style flags by identifier; guarded by m_stylesMutex, never shrinks.
    QHash<QString, qint64> m_catalogStyles;
    QMutex m_mutex;
    QMutex m_stylesMutex;
};

} // namespace Orvida::Catalogs
