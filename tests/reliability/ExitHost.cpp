// A host whose static objects still use the library while the process ends. Fails by its exit status or by a
// crash.

#include "catalogs/access/CatalogManager.h"

#include "support/TestSupport.h"

#include <QWeakPointer>

#include <cstdio>
#include <cstdlib>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

void check(bool isRight, const char *what)
{
    if (isRight)
        return;
    std::fprintf(stderr, "ExitHost: %s\n", what);
    std::_Exit(1);
}

// Made before the manager, so it goes after it.
struct Keeper
{
    ~Keeper()
    {
        check(hasUserGone && !released, "the manager has not released its catalogs");
        check(kept->getItemById(QString())->getChildItems().size() == 1, "the kept catalog is not whole");
        CatalogManager *manager = CatalogManager::instance();
        check(!manager->getCatalog(text("no file"))->IsValid(), "a catalog without a file is loaded");
        check(!manager->is3DSupportedCatalog(text("no file")), "a style without a file is read");
    }
    CatalogSptr kept;
    QWeakPointer<Catalog> released;
    bool hasUserGone = false;
} keeper;

// Asks for the manager when it is made, so it goes before it and may use it to the end.
struct User
{
    User() : manager(CatalogManager::instance()) {}
    ~User()
    {
        check(manager->getCatalog(text("kept")) == keeper.kept, "the cache is gone");
        check(manager->getCatalog(text("late"))->IsValid(), "no catalog is loaded any more");
        check(!manager->getCatalog(text("unknown"))->IsValid(), "an unknown catalog is loaded");
        check(manager->is3DSupportedCatalog(text("late")), "the style is not read any more");
        keeper.hasUserGone = true;
    }
    CatalogManager *manager;
};

} // namespace

int main()
{
    static CatalogFolder folder;
    static FileTable files;
    for (const char *id : {"kept", "released", "late"})
        files.add(text(id), folder.write(text(id), catalogXml("<CATALOG><CAT_Style>-1</CAT_Style></CATALOG>"
                                                              "<CLASS><CLASS_PK>C</CLASS_PK></CLASS>")));
    static User user;
    keeper.kept = user.manager->getCatalog(text("kept"));
    keeper.released = user.manager->getCatalog(text("released"));
    check(keeper.kept->IsValid() && keeper.released, "the catalogs are not loaded");
    return 0;
}
