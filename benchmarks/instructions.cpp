// instructions PART FILE: runs one part of loading once, for callgrind to count its instructions.
//   pass    a bare pass of the XML reader, the floor of a load
//   parse   CatalogXMLParser::readFile
//   load    CatalogLoader::loadCatalog, and the end of the catalog
#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include <QFile>
#include <QXmlStreamReader>

#include <cstdio>
#include <cstring>

using namespace Orvida::Catalogs;

namespace {

bool pass(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd() && !reader.hasError())
        reader.readNext();
    return !reader.hasError();
}

bool parse(const QString &path)
{
    CatalogXMLParser parser;
    QHash<QString, QSharedPointer<CatalogItem>> items;
    return parser.readFile(path, items);
}

bool load(const QString &path)
{
    return CatalogLoader().loadCatalog(path, QStringLiteral("benchmark"))->IsValid();
}

} // namespace

int main(int argc, char **argv)
{
    const struct
    {
        const char *name;
        bool (*run)(const QString &);
    } parts[] = {{"pass", pass}, {"parse", parse}, {"load", load}};
    for (const auto &part : parts) {
        if (argc == 3 && std::strcmp(argv[1], part.name) == 0)
            return part.run(QFile::decodeName(argv[2])) ? 0 : 2;
    }
    std::fputs("usage: instructions pass|parse|load FILE\n", stderr);
    return 3;
}
