#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "catalogs/access/ICatalogFileNameProvider.h"

#include <QTextStream>

using namespace Orvida::Catalogs;

class Names : public ICatalogFileNameProvider
{
    QString getCatalogFileName(const QString &id) const override { return id + QStringLiteral(".xml"); }
};

int main(int argc, char **argv)
{
    Names names;
    CatalogConfigData::setCatalogFileNameProvider(&names);
    CatalogConfigData::setCatalogFolderPath(QString::fromLocal8Bit(argc > 1 ? argv[1] : "catalogs/"));

    const CatalogSptr catalog = CatalogManager::instance()->getCatalog(QStringLiteral("tunnels"));
    if (!catalog->IsValid())
        return 1;
    QTextStream out(stdout);
    for (const auto &codeClass : catalog->getItemById(QString())->getChildItems())
        out << codeClass->caption() << ": " << codeClass->getChildItems().size() << " codes\n";
    return 0;
}
