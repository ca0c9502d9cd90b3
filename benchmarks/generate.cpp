// generate SEED SIZE [first|last]: writes a catalog of about SIZE bytes to standard output, with its catalog
// information first or last.
#include "benchmarks/CatalogGenerator.h"

#include <QBuffer>
#include <QFile>

#include <cstdio>
#include <cstring>

int main(int argc, char **argv)
{
    using Orvida::Benchmarks::CatalogGenerator;
    bool hasSeed = false;
    bool hasSize = false;
    const quint32 seed = argc > 2 ? QByteArray(argv[1]).toUInt(&hasSeed) : 0;
    const qint64 size = argc > 2 ? QByteArray(argv[2]).toLongLong(&hasSize) : 0;
    if (argc > 4 || !hasSeed || !hasSize) {
        std::fputs("usage: generate SEED SIZE [first|last]\n", stderr);
        return 3;
    }
    const bool isLast = argc == 4 && std::strcmp(argv[3], "last") == 0;
    QByteArray catalog;
    QBuffer buffer(&catalog);
    buffer.open(QIODevice::WriteOnly);
    CatalogGenerator(seed).write(
        buffer, size, isLast ? CatalogGenerator::StylePlace::Last : CatalogGenerator::StylePlace::First);
    QFile output;
    return output.open(stdout, QIODevice::WriteOnly) && output.write(catalog) == catalog.size() ? 0 : 2;
}
