// minimal-host FOLDER/ CATALOG [CODE]: prints the profiles and codes of a catalog, or the fields of one code.
#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "catalogs/access/ICatalogFileNameProvider.h"
#include <QTextStream>

using namespace Orvida::Catalogs;

// Maps identifiers of catalogs to names of files.
struct FileNames : ICatalogFileNameProvider
{
    QString getCatalogFileName(const QString &catalogId) const override { return catalogId + ".xml"; }
};

int main(int count, char **arguments)
{
    QTextStream out(stdout);
    if (count < 3) {
        out << "usage: minimal-host FOLDER/ CATALOG [CODE]\n";
        return 2;
    }
    FileNames fileNames;
    CatalogConfigData::setCatalogFileNameProvider(&fileNames);
    CatalogConfigData::setCatalogFolderPath(arguments[1]); // ends with a slash
    const CatalogSptr catalog = CatalogManager::instance()->getCatalog(arguments[2]);
    if (!catalog->IsValid()) {
        out << catalog->failure().text() << '\n';
        return 1;
    }
    if (count < 4) {
        for (const CatalogProfile &profile : catalog->profiles())
            out << (profile.key == catalog->profile() ? "* " : "  ") << profile.description << '\n';
        out << catalog->codes().join(' ') << '\n';
    } else if (const auto item = catalog->findItem(arguments[3])) {
        out << item->code() << "  " << item->caption() << '\n';
        for (const CatalogInputField &field : item->getFields())
            out << "  " << field.caption() << (field.isMandatory() ? " *\n" : "\n");
    }
    return 0;
}
