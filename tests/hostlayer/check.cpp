// Loads catalog.xml on one thread and reads its fields on another, with the recording host layer, and
// compares the calls with those in calls.txt. ORVIDA_UPDATE=1 rewrites calls.txt.
#include "catalogs/building/CatalogLoader.h"
#include "shared/RecordingHost.h"

#include <QFile>

#include <cstdio>
#include <thread>

using namespace Orvida;

int main()
{
    const QString folder = QStringLiteral(HOST_FOLDER);
    Catalogs::CatalogSptr catalog;
    std::thread loading([&] {
        Recording::threadName = "loading";
        catalog = Catalogs::CatalogLoader().loadCatalog(folder + QStringLiteral("/catalog.xml"), QString());
    });
    loading.join();
    Recording::threadName = "reading";
    for (const char *profile : {"P", "Q"}) {
        catalog->setProfile(QLatin1String(profile));
        const int fields = catalog->getItem(QStringLiteral("CRK"))->getFields().size();
        Recording::record("getFields", QStringLiteral("of %1: %2").arg(QLatin1String(profile)).arg(fields));
    }

    QFile listing(folder + QStringLiteral("/calls.txt"));
    const bool isUpdate = qEnvironmentVariableIsSet("ORVIDA_UPDATE");
    const QByteArray calls = Recording::calls().join(QLatin1Char('\n')).toUtf8() + '\n';
    if (!listing.open(isUpdate ? QIODevice::WriteOnly : QIODevice::ReadOnly))
        return 2;
    if (isUpdate)
        return listing.write(calls) == calls.size() ? 0 : 2;
    if (listing.readAll() == calls)
        return 0;
    std::fprintf(stderr, "These calls are not those in %s:\n%s", qUtf8Printable(listing.fileName()),
                 calls.constData());
    return 1;
}
