#include "catalogs/building/CatalogLoader.h"

#include "catalogs/building/InputFields_p.h"
#include "catalogs/building/ListLookup_p.h"
#include "catalogs/building/ProfileResolution_p.h"
#include "catalogs/model/MakeShared_p.h"
#include "catalogs/reading/CatalogXMLParser.h"

namespace Orvida::Catalogs {

CatalogSptr CatalogLoader::loadCatalog(const QString &filePath, const QString &catalogId)
{
    CatalogXMLParser parser;
    auto catalog = makeShared<Catalog>(catalogId);
    catalog->getCatalogItems().insert(QStringLiteral(""), makeShared<CatalogItem>());
    if (!parser.readFile(filePath, catalog->getCatalogItems())) {
        catalog->setFailure(parser.failure());
        catalog->setStatus(Catalog::LoadFailed);
        return catalog;
    }
    ListLookup lists = buildListLookup(parser, *catalog);
    buildInputFields(parser, *catalog, lists);
    lists.clear(); // the fields share what they need of them
    catalog->setProfile(resolveProfile(parser));
    catalog->setProfiles(profilesInOrderOfChoice(parser));
    catalog->setStatus(Catalog::Loaded);
    return catalog;
}

} // namespace Orvida::Catalogs
