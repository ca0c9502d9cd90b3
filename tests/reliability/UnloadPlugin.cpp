// The plugin of UnloadHost.cpp: the only part of that host that knows the catalog library.

#include "catalogs/access/CatalogManager.h"

#include "support/TestSupport.h"

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

// Gives the one catalog that the manager then has. Its list entry without a key is logged with a text
// that is static data of the library.
extern "C" Q_DECL_EXPORT void getCatalog(CatalogSptr &catalog)
{
    const CatalogFolder folder;
    FileTable files;
    files.add(text("id"), folder.write(text("catalog.xml"), catalogXml(recordsFrom(R"(
        CATPRO PK=P
        COL Profile_FK=P;Column_ID=C;DataType=TXT
        LC PK=l;Profile_FK=P;Class_ID=L
        LIST Class_FK=l;Caption=blank
        CLASS PK=C
        BASECODE PK=B;Class_FK=C;Code=BA
        PARAM PK=X;ID=X;DataType=TXT
        PARAMX PK=x;BaseCode_FK=B;Param_FK=X;Column_ID=C;ListClass_ID=L)"))));
    catalog = CatalogManager::instance()->getCatalog(text("id"));
}
