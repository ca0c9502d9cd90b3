// Gets catalogs from the manager without keeping anybody waiting.
#pragma once

#include "catalogs/model/Catalog.h"
#include "models/ModelsExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Orvida::Models {

using Catalogs::CatalogReadFailure;
using Catalogs::CatalogSptr;

/// Asks the manager for catalogs on a thread of its own, one after the other in the order in which they were
/// requested, and delivers them by signals on the thread in which the fetcher lives, which needs an event
/// loop. No call but the destructor waits for a load.
///
/// The catalogs are the manager's: loaded once, kept, and shared. Nobody uses a catalog before it is
/// delivered, except receivers of the manager's own signals: those are sent on the fetcher's inner thread,
/// with the manager's lock held. Connect to them across threads only with
/// `CatalogManager::registerMetaTypes`, and not with a blocking connection.
///
/// One fetcher serves a whole application, and is best kept until its end. It is used on the thread in which
/// it lives. The host's file-name provider and its own layer are called on the inner thread.
class ORVIDA_MODELS_EXPORT CatalogFetcher : public QObject
{
    Q_OBJECT

public:
    explicit CatalogFetcher(QObject *parent = nullptr);
    /// Drops all requests, and waits for the load that is running, because the process may end next. Not to
    /// be called where that load cannot go on: inside a signal of the manager, whose lock the load needs.
    ~CatalogFetcher() override;

    /// Requests the catalog `catalogId`, any text, and gives the number of the request, from 1. Each request
    /// is answered by one signal, after this call returned, also when several ask for the same catalog.
    int fetch(const QString &catalogId);

    /// Withdraws a request: no signal comes for it. False when it was answered, withdrawn or never made. A
    /// load that is running already goes on, and its catalog is kept by the manager.
    bool cancel(int request);
    /// Withdraws all requests.
    void cancelAll();
    /// How many requests are not answered yet.
    int pendingCount() const;

Q_SIGNALS:
    /// The request is answered by a loaded catalog.
    void fetched(int request, CatalogSptr catalog);
    /// The catalog was not loaded. `failure` says why; when an exception ended the load, such as one of the
    /// host's provider, its reason is `FileNotRead` and its detail tells of the exception.
    void failed(int request, QString catalogId, CatalogReadFailure failure);

protected:
    /// Where the answers arrive.
    void customEvent(QEvent *event) override;

private:
    struct Q_DECL_HIDDEN Private;
    const std::unique_ptr<Private> m_private;
};

} // namespace Orvida::Models
