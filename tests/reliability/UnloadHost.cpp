// A host that does not link the catalog library: it opens a plugin that does, closes it again, and goes on
// using what it got. Argument: the plugin. Fails by its exit status or by a crash.

#include "catalogs/model/Catalog.h"

#include <QList>
#include <QLoggingCategory>
#include <QPair>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

using Orvida::Catalogs::CatalogSptr;

namespace {

// As the library gave them: neither the names of the categories nor the texts are copied.
QList<QPair<const char *, QString>> messages;

// Goes at the very end, after all that the library has of static objects.
CatalogSptr keptToTheEnd;

void check(bool isRight, const char *what)
{
    if (isRight)
        return;
    std::fprintf(stderr, "UnloadHost: %s\n", what);
    std::_Exit(1);
}

// Opens the plugin, asks it for its catalog, and closes it.
CatalogSptr catalogOf(const char *plugin)
{
    void *library = dlopen(plugin, RTLD_NOW | RTLD_LOCAL);
    check(library, "the plugin does not load");
    const auto getCatalog = reinterpret_cast<void (*)(CatalogSptr &)>(dlsym(library, "getCatalog"));
    check(getCatalog, "the plugin has no catalog");
    CatalogSptr catalog;
    getCatalog(catalog);
    dlclose(library);
    return catalog;
}

} // namespace

int main(int, char **arguments)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &context, const QString &message) {
        messages.append({context.category, message});
    });
    CatalogSptr catalog = catalogOf(arguments[1]);
    const auto item = catalog->getItem(QStringLiteral("BA"));
    check(item && item->code() == QLatin1String("BA"), "the item is lost");
    check(messages.size() == 1 && qstrcmp(messages.at(0).first, "CatalogListItem") == 0
              && messages.at(0).second == QLatin1String("Catalog item created with empty key!"),
          "the message is lost");
    QLoggingCategory::setFilterRules(QStringLiteral("Catalog*=true"));

    keptToTheEnd = catalogOf(arguments[1]);
    check(keptToTheEnd == catalog, "the catalog was loaded again");
    return 0;
}
