// hostile-load FILE PROFILES: loads a catalog file, visits everything that a host can reach under the
// profiles P0, P1 and so on, and destroys it. hostile-load FILE style: asks for its style. hostile-load FILE
// check: checks it. Prints the result to standard error.
#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "checking/CatalogChecker.h"
#include "support/CatalogWalk.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char **argv)
{
    if (argc != 3)
        return 3;
    const QString path = QFile::decodeName(argv[1]);
    if (std::strcmp(argv[2], "style") == 0) {
        const qint64 style = Orvida::Catalogs::CatalogXMLParser().readCatalogStyleFlag(path);
        std::fprintf(stderr, "style %lld", style);
        return 0;
    }
    if (std::strcmp(argv[2], "check") == 0) {
        const bool loads = Orvida::Checking::CatalogChecker().check(path);
        std::fprintf(stderr, "loads %d", int(loads));
        return 0;
    }
    auto catalog = Orvida::Catalogs::CatalogLoader().loadCatalog(path, QStringLiteral("hostile"));
    QStringList profiles;
    for (int number = 0; number < std::atoi(argv[2]); ++number)
        profiles.append(QStringLiteral("P%1").arg(number));
    const QString fault = Orvida::Tests::faultOf(*catalog, profiles);
    const int items = catalog->IsValid() ? catalog->getCatalogItems().size() : 0;
    catalog.reset();
    std::fprintf(stderr, "items %d%s", items, qUtf8Printable(fault));
    return 0;
}
