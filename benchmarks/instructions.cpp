// instructions PART FILE: runs one part of loading, or a check, once, so that callgrind can count its
// instructions.
//   pass    a bare pass of QXmlStreamReader
//   check   a bare pass of the scanner: whether the file is plain
//   scan    a pass of the scanner that reads every name and text
//   parse   CatalogXMLParser::readFile
//   load    CatalogLoader::loadCatalog, and the catalog's destruction
//   faults  CatalogChecker::check
#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "catalogs/reading/PlainXmlScanner_p.h"
#include "checking/CatalogChecker.h"

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

bool check(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    PlainXmlScanner scanner(file);
    while (scanner.tokenType() != QXmlStreamReader::EndDocument && !scanner.hasError())
        scanner.readNext();
    return !scanner.hasError();
}

bool scan(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    PlainXmlScanner scanner(file);
    qint64 characters = 0;
    while (scanner.tokenType() != QXmlStreamReader::EndDocument && !scanner.hasError()) {
        if (scanner.readNext() == QXmlStreamReader::StartElement)
            characters += scanner.name().length();
        else
            characters += scanner.text().length();
    }
    return characters > 0 && !scanner.hasError();
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

bool faults(const QString &path)
{
    return Orvida::Checking::CatalogChecker().check(path);
}

} // namespace

int main(int argc, char **argv)
{
    const struct
    {
        const char *name;
        bool (*run)(const QString &);
    } parts[] = {{"pass", pass},   {"check", check}, {"scan", scan},
                 {"parse", parse}, {"load", load},   {"faults", faults}};
    for (const auto &part : parts) {
        if (argc == 3 && std::strcmp(argv[1], part.name) == 0)
            return part.run(QFile::decodeName(argv[2])) ? 0 : 2;
    }
    std::fputs("usage: instructions pass|check|scan|parse|load|faults FILE\n", stderr);
    return 3;
}
