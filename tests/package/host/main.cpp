#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "catalogs/access/ICatalogFileNameProvider.h"
#include <QTextStream>

using namespace Orvida::Catalogs;

struct Names : ICatalogFileNameProvider
{
    QString getCatalogFileName(const QString &id) const override { return id + ".xml"; }
};

int main(int, char **arguments)
{
    Names names;
    CatalogConfigData::setCatalogFileNameProvider(&names);
    CatalogConfigData::setCatalogFolderPath(arguments[1]); // ends with a slash
    const CatalogSptr catalog = CatalogManager::instance()->getCatalog("tunnels");
    QTextStream out(stdout);
    for (const auto &codeClass : catalog->getItemById("")->getChildItems())
        out << codeClass->caption() << ": " << codeClass->getChildItems().size() << " codes\n";
    return catalog->IsValid() ? 0 : 1;
}
