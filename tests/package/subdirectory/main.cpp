// A host with a receiver of its own, for which its automatic moc works as ever.
#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "catalogs/access/ICatalogFileNameProvider.h"
#include <QTextStream>

using namespace Orvida::Catalogs;

struct Names : ICatalogFileNameProvider
{
    QString getCatalogFileName(const QString &id) const override { return id + ".xml"; }
};

class Receiver : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void print(const Orvida::Catalogs::CatalogSptr &catalog)
    {
        QTextStream out(stdout);
        for (const auto &codeClass : catalog->getItemById("")->getChildItems())
            out << codeClass->caption() << ": " << codeClass->getChildItems().size() << " codes\n";
    }
};

int main(int, char **arguments)
{
    Names names;
    Receiver receiver;
    CatalogConfigData::setCatalogFileNameProvider(&names);
    CatalogConfigData::setCatalogFolderPath(arguments[1]);
    QObject::connect(CatalogManager::instance(), &CatalogManager::catalogReady, &receiver, &Receiver::print);
    return CatalogManager::instance()->getCatalog("tunnels")->IsValid() ? 0 : 1;
}

#include "main.moc"
