// memory none|load|check|dom FILE: loads or checks the file in one way and prints the peak memory of the
// process in bytes, and how much the loaded catalog itself takes; none only starts the program.
#include "benchmarks/DomCatalog.h"

#include "catalogs/building/CatalogLoader.h"
#include "checking/CatalogChecker.h"

#include <QFile>

#include <cstdio>
#include <cstring>
#include <malloc.h>
#include <sys/resource.h>

using namespace Orvida;

namespace {

long long peakBytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss * 1024LL;
}

long long heapBytes()
{
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<long long>(heap.uordblks + heap.hblkhd);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: memory none|load|check|dom FILE\n", stderr);
        return 3;
    }
    const QString path = QFile::decodeName(argv[2]);
    const long long before = heapBytes();
    Catalogs::CatalogSptr catalog;
    QHash<QString, QSharedPointer<Catalogs::CatalogItem>> items;
    if (std::strcmp(argv[1], "load") == 0)
        catalog = Catalogs::CatalogLoader().loadCatalog(path, QStringLiteral("benchmark"));
    else if (std::strcmp(argv[1], "check") == 0)
        Checking::CatalogChecker().check(path);
    else if (std::strcmp(argv[1], "dom") == 0)
        items = Benchmarks::loadDomCatalog(path);
    std::printf("%lld %lld\n", peakBytes(), heapBytes() - before);
    return 0;
}
