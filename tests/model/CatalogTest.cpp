// The catalog: its tables, and how its items become a tree.

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
    auto catalog = CatalogSptr::create(QStringLiteral("CAT\u00C4LOG"));
    catalog->getCatalogItems().insert(QStringLiteral(""), ItemPtr::create());
    for (const QString &properties : items.split(QLatin1Char(' '))) {
        const auto item = ItemPtr::create();
        item->setId(properties.section(QLatin1Char(':'), 0, 0));
        item->setParentId(properties.section(QLatin1Char(':'), 1, 1));
        item->setCode(properties.section(QLatin1Char(':'), 2));
        catalog->getCatalogItems().insert(item->id(), item);
    }
    return catalog;
}

// Links once more, and gives what that writes to standard output.
QByteArray link(Catalog &catalog)
{
    Orvida::Tests::StandardOutputCapture output;
    catalog.setStatus(Catalog::Loaded);
    return output.take();
}

// Which of the two keys linking meets first.
bool isVisitedBefore(Catalog &catalog, const QString &first, const QString &second)
{
    const QStringList visited = catalog.getCatalogItems().keys();
    return visited.indexOf(first) < visited.indexOf(second);
}

} // namespace

class CatalogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isLinkedAndValidOnlyWhenLoaded();
    void addsAPlaceForAnUnknownKey();
    void keepsDefectCodesPerProfile();
    void choosesWhoAnswersForACode_data();
    void choosesWhoAnswersForACode();
    void reportsOrphansOnStandardOutput();
    void linksParentLoopsLikeAllOthers_data();
    void linksParentLoopsLikeAllOthers();
    void remembersLoopsOfAnEarlierLinking();
};

void CatalogTest::isLinkedAndValidOnlyWhenLoaded()
{
    for (auto status : {Catalog::NotLoaded, Catalog::Loaded, Catalog::LoadFailed}) {
        const bool isLoaded = status == Catalog::Loaded;
        const CatalogSptr catalog = makeCatalog(text("C::AB"));
        catalog->setStatus(status);
        QCOMPARE(catalog->IsValid(), isLoaded);
        QCOMPARE(catalog->getItemById(QString())->getChildItems().size(), isLoaded ? 1 : 0);
        QCOMPARE(catalog->getItem(text("AB")), isLoaded ? catalog->getItemById(text("C")) : ItemPtr());
        for (const ItemPtr &item : catalog->getCatalogItems())
            QCOMPARE(item->catalog(), isLoaded ? catalog.data() : nullptr);
    }
}

void CatalogTest::addsAPlaceForAnUnknownKey()
{
    Catalog catalog(text("catalog"));
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

void CatalogTest::keepsDefectCodesPerProfile()
{
    using Codes = QHash<QString, QString>;
    Catalog catalog(text("catalog"));
    for (const Codes &codes : {Codes{{text("A"), text("1")}}, Codes{{text("B"), text("2")}}}) {
        catalog.setContinousDefectCodes(text("P"), codes);
        catalog.setProfile(text("P"));
        QCOMPARE(catalog.getContinousDefectCodes(), codes);
        catalog.setProfile(text("p"));
        QCOMPARE(catalog.getContinousDefectCodes(), Codes());
    }
}

void CatalogTest::choosesWhoAnswersForACode_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<bool>("doesFirstComeCount");
    QTest::newRow("parent and child") << "C: A#:C:AB B#:A#:AB" << false;
    QTest::newRow("unrelated") << "C: A#:C:AB B#:C:AB" << true;
}

// The order in which items are linked follows from their keys, so enough keys show both orders, whatever
// the hash seed is.
void CatalogTest::choosesWhoAnswersForACode()
{
    QFETCH(QString, items);
    QFETCH(bool, doesFirstComeCount);
    int ahead = 0;
    for (int number = 0; number < 100; ++number) {
        const CatalogSptr catalog = makeCatalog(QString(items).replace(text("#"), QString::number(number)));
        const QString a = text("A%1").arg(number);
        const QString b = text("B%1").arg(number);
        const bool isAhead = isVisitedBefore(*catalog, a, b);
        ahead += isAhead ? 1 : 0;
        QCOMPARE(link(*catalog), QByteArray());
        QCOMPARE(catalog->getItem(text("AB"))->id(), doesFirstComeCount && isAhead ? a : b);
        QCOMPARE(catalog->getItem(QString())->id(), QString()); // the root, not one of those without a code
    }
    QVERIFY2(ahead > 0 && ahead < 100, qPrintable(QString::number(ahead)));
}

// One has a parent of another letter case, the other one's is in the table, but empty.
void CatalogTest::reportsOrphansOnStandardOutput()
{
    const CatalogSptr catalog = makeCatalog(QStringLiteral("C: B\u00DF:c:AB E:empty F:E"));
    const ItemPtr one = catalog->getItemById(QStringLiteral("B\u00DF"));
    one->setCaption(QStringLiteral("D\u00E9viation \u20AC \U0001F687 %1"));
    QVERIFY(!catalog->getItemById(text("empty")));
    const QByteArray first = "Parent of item: D\xC3\xA9viation \xE2\x82\xAC \xF0\x9F\x9A\x87 %1 not found!\n"
                             "Item id: B\xC3\x9F\nCatalog id: CAT\xC3\x84LOG\n";
    const QByteArray second = "Parent of item:  not found!\nItem id: E\nCatalog id: CAT\xC3\x84LOG\n";
    const bool isOneFirst = isVisitedBefore(*catalog, one->id(), text("E"));
    QCOMPARE(link(*catalog), isOneFirst ? first + second : second + first);

    QVERIFY(catalog->IsValid() && !catalog->getItemById(text("empty")));
    QVERIFY(catalog->getItem(text("AB")) == one && one->catalog() == catalog.data());
    for (const QString &parent : {text(""), text("E")})
        QCOMPARE(catalog->getItemById(parent)->getChildItems().size(), 1);
}

void CatalogTest::linksParentLoopsLikeAllOthers_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<int>("loops");
    QTest::addColumn<int>("times");

    QString longOne = text("t:5 u:t");
    for (int number = 0; number < 100000; ++number)
        longOne += QStringLiteral(" %1:%2").arg(number).arg((number + 1) % 100000);
    QTest::newRow("item under itself") << "a:a" << 1 << 1;
    QTest::newRow("two, with trees, linked twice") << "a:b b:c c:a t:b u:t v:t w:a C: D:C x:y y:x" << 2 << 2;
    QTest::newRow("long") << longOne << 1 << 1;
}

void CatalogTest::linksParentLoopsLikeAllOthers()
{
    QFETCH(QString, items);
    QFETCH(int, loops);
    QFETCH(int, times);
    CatalogSptr catalog = makeCatalog(items);
    for (int time = 0; time < times; ++time)
        QCOMPARE(link(*catalog), QByteArray());
    int linked = 0;
    for (const ItemPtr &item : catalog->getCatalogItems()) {
        for (const ItemPtr &child : item->getChildItems())
            QCOMPARE(child->parentId(), item->id());
        linked += item->getChildItems().size();
    }
    QCOMPARE(linked, times * (catalog->getCatalogItems().size() - 1));

    // When the catalog goes, each loop is open in one place, and everything else is as it was.
    QList<ItemPtr> kept = catalog->getCatalogItems().values();
    const QList<QWeakPointer<CatalogItem>> weak(kept.begin(), kept.end());
    catalog.reset();
    for (const ItemPtr &item : qAsConst(kept)) {
        QVERIFY(!item->catalog());
        linked -= item->getChildItems().size();
    }
    QCOMPARE(linked, times * loops);
    kept.clear();
    for (const auto &item : weak)
        QVERIFY(!item);
}

void CatalogTest::remembersLoopsOfAnEarlierLinking()
{
    CatalogSptr catalog = makeCatalog(text("a:a"));
    catalog->setStatus(Catalog::Loaded);
    const QWeakPointer<CatalogItem> item = catalog->getItemById(text("a"));
    item.toStrongRef()->setParentId(text(""));
    catalog->setStatus(Catalog::Loaded);
    catalog.reset();
    QVERIFY(!item);
}

QTEST_GUILESS_MAIN(CatalogTest)

#include "CatalogTest.moc"
