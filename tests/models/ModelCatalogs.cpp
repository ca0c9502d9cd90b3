#include "models/ModelCatalogs.h"

#include "catalogs/building/CatalogLoader.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QPair>
#include <QRandomGenerator>

namespace Orvida::Tests {

namespace {

using namespace Catalogs;
using ItemPtr = QSharedPointer<CatalogItem>;

ItemPtr addItem(Catalog &catalog, const QString &id, const QString &parentId)
{
    const ItemPtr item = ItemPtr::create();
    item->setId(id);
    item->setParentId(parentId);
    item->setCode(id);
    item->setCaption(id);
    catalog.getCatalogItems().insert(id, item);
    return item;
}

// Children that were added to items after linking. They may hold each other in loops, and then nothing but
// removing them destroys the items.
using AddedChildren = QVector<QPair<ItemPtr, ItemPtr>>;

void removeChildren(AddedChildren &added)
{
    for (const auto &[parent, child] : qAsConst(added))
        parent->removeChildItem(child);
    added.clear();
}

CatalogSptr randomCatalog(quint32 seed)
{
    QRandomGenerator random(seed);
    const auto added = QSharedPointer<AddedChildren>::create();
    const CatalogSptr catalog(new Catalog(QString::number(seed)), [added](Catalog *ended) {
        removeChildren(*added);
        delete ended;
    });
    addItem(*catalog, QString(), QString());
    const int count = random.bounded(60);
    const auto anyId = [&] { return QString::number(random.bounded(count)); };
    for (int number = 0; number < count; ++number) {
        const ItemPtr item =
            addItem(*catalog, QString::number(number), random.bounded(4) == 0 ? QString() : anyId());
        item->setSortOrder(random.bounded(5));
    }
    catalog->setStatus(Catalog::Loaded);
    for (int link = 0; count > 0 && link < 5; ++link)
        added->append({catalog->findItemById(anyId()), catalog->findItemById(anyId())});
    for (const auto &[parent, child] : qAsConst(*added))
        parent->addChildItem(child);
    if (count > 0)
        catalog->findItemById(anyId())->addChildItem(ItemPtr());
    return catalog;
}

} // namespace

QVector<NamedCatalog> modelCatalogs()
{
    QVector<NamedCatalog> catalogs = {
        {text("none"), CatalogSptr()},
        {text("tunnels"), CatalogLoader().loadCatalog(text(ORVIDA_SAMPLES "/tunnels.xml"), text("tunnels"))}};
    const CatalogFolder folder;
    const QDir files(text(ORVIDA_SOURCES "/tests/catalogs"));
    for (const QString &name : files.entryList({text("*.xml")})) {
        const QString path = folder.write(name, scrambledCatalog(files.filePath(name)));
        catalogs.append({name, CatalogLoader().loadCatalog(path, name)});
    }
    for (quint32 seed = 1; seed <= 30; ++seed)
        catalogs.append({text("random %1").arg(seed), randomCatalog(seed)});
    return catalogs;
}

CatalogSptr catalogWithLevels(int count)
{
    auto catalog = CatalogSptr::create(text("levels"));
    addItem(*catalog, QString(), QString());
    for (int number = 0; number < count; ++number)
        addItem(*catalog, QString::number(number), number > 0 ? QString::number(number - 1) : QString());
    catalog->setStatus(Catalog::Loaded);
    return catalog;
}

CatalogSptr catalogWithSiblings(int count)
{
    auto catalog = CatalogSptr::create(text("siblings"));
    addItem(*catalog, QString(), QString());
    for (int number = 0; number < count; ++number)
        addItem(*catalog, QString::number(number), QString())->setSortOrder(number);
    catalog->setStatus(Catalog::Loaded);
    return catalog;
}

} // namespace Orvida::Tests
