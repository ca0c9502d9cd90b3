// The code of docs/host-guide.md, block by block as it is there, and what it does.
//   guide-check SAMPLES FOLDER/    the folder of the sample, and one with the file bad.xml, which does not
//   load
#include "catalogs/CatalogsVersion.h"
#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "catalogs/access/ICatalogFileNameProvider.h"
#include "models/CatalogFetcher.h"

#include <QCoreApplication>
#include <QVersionNumber>

using namespace Orvida::Catalogs;
using Orvida::Models::CatalogFetcher;

namespace {

QStringList shown;

void show(const CatalogSptr &catalog)
{
    shown << catalog->catalogId();
}

void showMessage(const QString &text)
{
    shown << text;
}

struct FileNames : ICatalogFileNameProvider
{
    QString getCatalogFileName(const QString &catalogId) const override { return catalogId + ".xml"; }
};

} // namespace

class Page : public QObject
{
public:
    Page()
    {
        connect(&m_fetcher, &CatalogFetcher::fetched, this,
                [](int, const CatalogSptr &catalog) { show(catalog); });
        connect(&m_fetcher, &CatalogFetcher::failed, this,
                [](int, const QString &catalogId, const CatalogReadFailure &failure) {
                    showMessage(catalogId + ": " + failure.text());
                });
    }

    void choose(const QString &catalogId)
    {
        m_fetcher.cancel(m_request); // the user has changed his mind
        m_request = m_fetcher.fetch(catalogId);
    }

private:
    CatalogFetcher m_fetcher;
    int m_request = 0;
};

CatalogSptr catalogOrMessage(const QString &catalogId)
{
    const CatalogSptr catalog = CatalogManager::instance()->getCatalog(catalogId);
    if (catalog->IsValid())
        return catalog;
    showMessage(catalog->failure().text());
    return CatalogSptr();
}

void goToLine(const QString &catalogId)
{
    const CatalogReadFailure failure = CatalogManager::instance()->getCatalog(catalogId)->failure();
    switch (failure.reason) {
    case CatalogReadFailure::None: return;
    case CatalogReadFailure::FileNotRead: showMessage("Is the drive connected? " + failure.detail); return;
    case CatalogReadFailure::NotWellFormed:
    case CatalogReadFailure::RecordRefused:
        showMessage(QString("%1:%2").arg(failure.line).arg(failure.column));
    }
}

void mistakes(const QString &folder)
{
    CatalogConfigData::setCatalogFolderPath(folder + '/');

    const CatalogSptr catalog = CatalogManager::instance()->getCatalog("tunnels");
    if (!catalog->IsValid())
        return showMessage(catalog->failure().text());

    const auto item = catalog->findItem("no such code"); // getItem would add the code
    if (!item)
        showMessage("unknown code");

    struct Selection
    {
        CatalogSptr catalog; // as long as the item is used
        QSharedPointer<CatalogItem> item;
    };
    const Selection selection = {catalog, catalog->findItem("ERG")};
    showMessage(QString::number(selection.item->getFields().size()));

    CatalogManager::registerMetaTypes();
    QObject::connect(
        CatalogManager::instance(), &CatalogManager::catalogReady, qApp,
        [](const CatalogSptr &ready) {
            CatalogManager::instance()->getCatalog(ready->catalogId() + "-more");
        },
        Qt::QueuedConnection);
}

// Prints what was shown.
int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    FileNames fileNames;
    CatalogConfigData::setCatalogFileNameProvider(&fileNames);
    mistakes(argv[1]);
    CatalogConfigData::setCatalogFolderPath(argv[2]);
    catalogOrMessage("bad");
    goToLine("bad");
    goToLine("missing");
    Page page;
    page.choose("missing");
    page.choose("bad");
    page.choose("tunnels"); // in the cache
    const int shownBefore = shown.size();
    while (shown.size() == shownBefore)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (const QString &line : qAsConst(shown))
        qInfo("%s", qPrintable(line));
    return runtimeVersion() >= QVersionNumber(0, 1) ? 0 : 1;
}
