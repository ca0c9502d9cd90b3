// comparison OLD NEW: compares two catalogs once, for callgrind to count the instructions, and prints how
// many changes there are.
#include "checking/CatalogComparison.h"

#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: comparison OLD NEW\n", stderr);
        return 3;
    }
    Orvida::Checking::CatalogComparison comparison;
    if (!comparison.compare(QFile::decodeName(argv[1]), QFile::decodeName(argv[2])))
        return 2;
    std::printf("%d changes\n", comparison.changes().size());
    return 0;
}
