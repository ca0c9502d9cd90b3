// scramble-catalog IN OUT: the build's own program that makes the shipped samples.
#include "tools/CatalogScrambler.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: scramble-catalog IN OUT\n", stderr);
        return 3;
    }
    QFile input(QFile::decodeName(argv[1]));
    QSaveFile output(QFile::decodeName(argv[2]));
    if (!input.open(QIODevice::ReadOnly) || !output.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "scramble-catalog: cannot open %s and %s\n", argv[1], argv[2]);
        return 2;
    }
    Orvida::Tools::CatalogScrambler scrambler;
    if (!scrambler.scramble(input, output) || !output.commit()) {
        std::fprintf(stderr, "scramble-catalog: %s: %s\n", argv[1], qUtf8Printable(scrambler.errorText()));
        return 2;
    }
    return 0;
}
