// Fuzz target: any bytes as a catalog file. Loads it, walks everything that a host can reach, and drops it.
#include "catalogs/building/CatalogLoader.h"

#include <QSet>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <sys/mman.h>
#include <unistd.h>

using namespace Orvida::Catalogs;

namespace {

void walk(const CatalogSptr &catalog)
{
    catalog->getContinousDefectCodes();
    QSet<CatalogItem *> seen;
    QList<QSharedPointer<CatalogItem>> waiting = catalog->getCatalogItems().values();
    while (!waiting.isEmpty()) {
        const QSharedPointer<CatalogItem> item = waiting.takeLast();
        if (seen.contains(item.data()))
            continue;
        seen.insert(item.data());
        catalog->getItem(item->code());
        for (const CatalogInputField &field : item->getFields())
            field.itemList();
        waiting += item->getChildItems();
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // The library reports orphans there.
    return std::freopen("/dev/null", "w", stdout) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const int file = memfd_create("catalog", 0);
    static const QString path = QStringLiteral("/proc/self/fd/%1").arg(file);
    if (ftruncate(file, 0) != 0 || pwrite(file, data, size, 0) != static_cast<ssize_t>(size))
        return 0;
    const CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("fuzz"));
    if (catalog->IsValid())
        walk(catalog);
    return 0;
}
