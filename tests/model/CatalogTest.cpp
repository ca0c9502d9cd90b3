// The catalog's look-ups, and linking where it depends on hash order or is repeated. How files become trees
// is tested in catalogs/.

#include "catalogs/model/Catalog.h"

#include "support/TestSupport.h"

#include <QWeakPointer>
#include <QtTest>

using namespace Orvida::Catalogs;
using Orvida::Tests::text;
using ItemPtr = QSharedPointer<CatalogItem>;

namespace {

// A catalog with a root, and with an item for each "id:parent id:code"; the code may be missing.
CatalogSptr makeCatalog(const QString &items)
{
    auto catalog = CatalogSptr::create(text("catalog"));
    catalog->getCatalogItems().insert(text(""), ItemPtr::create());
    for (const QString &properties : items.split(QLatin1Char(' '))) {
        const auto item = ItemPtr::create();
        item->setId(properties.section(QLatin1Char(':'), 0, 0));
        item->setParentId(properties.section(QLatin1Char(':'), 1, 1));
        item->setCode(properties.section(QLatin1Char(':'), 2));
        catalog->getCatalogItems().insert(item->id(), item);
    }
    return catalog;
}

} // namespace

class CatalogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmptyAndInsertsUnknownKeys();
    void choosesWhoAnswersForACode_data();
    void choosesWhoAnswersForACode();
    void cutsLoopsInOnePlaceWhenDestroyed();
    void skipsEmptyPointers();
    void findsWithoutInserting();
};

void CatalogTest::startsEmptyAndInsertsUnknownKeys()
{
    Catalog catalog(text("catalog"));
    QVERIFY(catalog.status() == Catalog::NotLoaded && !catalog.IsValid() && catalog.profile().isNull());
    QVERIFY(catalog.getCatalogItems().isEmpty());
    const ItemPtr item = ItemPtr::create();
    for (const QString &key : {text("a"), QString()}) {
        QVERIFY(!catalog.getItemById(key) && !catalog.getItem(key));
        catalog.getItemById(key) = item;
        catalog.getItem(key) = item;
    }
    QVERIFY(!catalog.getItemById(text("A")) && !catalog.getItem(text("A")));
    QCOMPARE(catalog.getItem(text("a")), item);
    const QHash<QString, ItemPtr> items = {{text(""), item}, {text("a"), item}, {text("A"), ItemPtr()}};
    QCOMPARE(catalog.getCatalogItems(), items);
}

void CatalogTest::choosesWhoAnswersForACode_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<bool>("doesFirstComeCount");
    QTest::newRow("parent and child") << "C: A#:C:AB B#:A#:AB" << false;
    QTest::newRow("unrelated") << "C: A#:C:AB B#:C:AB" << true;
}

// The order in which items are linked depends on their keys, so with enough keys both orders occur for any
// hash seed.
void CatalogTest::choosesWhoAnswersForACode()
{
    QFETCH(QString, items);
    QFETCH(bool, doesFirstComeCount);
    int ahead = 0;
    for (int number = 0; number < 100; ++number) {
        const CatalogSptr catalog = makeCatalog(QString(items).replace(text("#"), QString::number(number)));
        const QString a = text("A%1").arg(number);
        const QString b = text("B%1").arg(number);
        const QStringList visited = catalog->getCatalogItems().keys();
        const bool isAhead = visited.indexOf(a) < visited.indexOf(b);
        ahead += isAhead ? 1 : 0;
        catalog->setStatus(Catalog::Loaded);
        QCOMPARE(catalog->getItem(text("AB"))->id(), doesFirstComeCount && isAhead ? a : b);
        QCOMPARE(catalog->getItem(QString())->id(), QString()); // the root, not one of those without a code
    }
    QVERIFY2(ahead > 0 && ahead < 100, qPrintable(QString::number(ahead)));
}

// Linking twice lists all children twice, and a loop remains after the parent ids no longer form it.
void CatalogTest::cutsLoopsInOnePlaceWhenDestroyed()
{
    constexpr int loops = 3;
    CatalogSptr catalog = makeCatalog(text("a:b b:c c:a t:b u:t v:t w:a C: D:C x:y y:x z:z"));
    catalog->setStatus(Catalog::Loaded);
    catalog->setStatus(Catalog::Loaded);
    catalog->getItemById(text("z"))->setParentId(text(""));
    catalog->setStatus(Catalog::Loaded);
    QList<ItemPtr> kept = catalog->getCatalogItems().values();
    const QList<QWeakPointer<CatalogItem>> weak(kept.begin(), kept.end());
    catalog.reset();
    int children = 0;
    for (const ItemPtr &item : qAsConst(kept)) {
        QVERIFY(!item->catalog());
        children += item->getChildItems().size();
    }
    // The child that closes a loop was removed from its parent, however often it was listed; z is also a
    // child of the root.
    QCOMPARE(children, 3 * (kept.size() - 1 - loops) + 1);
    kept.clear();
    for (const auto &item : weak)
        QVERIFY(!item);
}

// A look-up before linking adds one. Its child is an orphan like any other.
void CatalogTest::skipsEmptyPointers()
{
    const CatalogSptr catalog = makeCatalog(text("C:"));
    QVERIFY(!catalog->getItemById(text("empty")));
    catalog->setStatus(Catalog::Loaded);
    QVERIFY(!catalog->getItemById(text("empty")));
    QCOMPARE(catalog->getItemById(text(""))->getChildItems().size(), 1);
}

// A pointer that an earlier look-up has added is no item.
void CatalogTest::findsWithoutInserting()
{
    const CatalogSptr catalog = makeCatalog(text("C: A:C:b B:C:a a:A:b"));
    catalog->setStatus(Catalog::Loaded);
    QVERIFY(!catalog->getItem(text("added")) && !catalog->getItemById(text("added")));
    const int items = catalog->getCatalogItems().size();
    const Catalog &found = *catalog;
    QCOMPARE(found.findItemById(text("A"))->id(), text("A"));
    QCOMPARE(found.findItem(text("b"))->id(), text("a"));
    QCOMPARE(found.findItemById(QString()), catalog->getItem(QString()));
    QVERIFY(!found.findItemById(text("other")) && !found.findItem(text("B")));
    QCOMPARE(found.codes(), QStringList({text("a"), text("b")}));
    QCOMPARE(catalog->getCatalogItems().size(), items);
}

QTEST_GUILESS_MAIN(CatalogTest)

#include "CatalogTest.moc"
