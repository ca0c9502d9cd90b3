// The catalog: its tables, and how its items become a tree.

#include "catalogs/model/Catalog.h"

#include "support/TestSupport.h"

#include <QWeakPointer>
#include <QtTest>

#include <algorithm>

using Orvida::Catalogs::Catalog;
using Orvida::Catalogs::CatalogItem;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Tests::StandardOutputCapture;
using ItemPtr = QSharedPointer<CatalogItem>;
using WeakItems = QList<QWeakPointer<CatalogItem>>;

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

// A catalog as the loader begins it: with the root only.
CatalogSptr makeCatalog()
{
    auto catalog = CatalogSptr::create(QStringLiteral("CAT\u00C4LOG"));
    catalog->getCatalogItems().insert(QStringLiteral(""), ItemPtr::create());
    return catalog;
}

ItemPtr addItem(Catalog &catalog, const QString &id, const QString &parentId, const QString &code = QString())
{
    auto item = ItemPtr::create();
    item->setId(id);
    item->setParentId(parentId);
    item->setCode(code);
    catalog.getCatalogItems().insert(id, item);
    return item;
}

// Adds one item per link, "id:parent id"; a blank stands between links.
void addItems(Catalog &catalog, const QString &links)
{
    for (const QString &link : links.split(QLatin1Char(' ')))
        addItem(catalog, link.section(QLatin1Char(':'), 0, 0), link.section(QLatin1Char(':'), 1));
}

// Which of the two keys linking meets first.
bool isVisitedBefore(Catalog &catalog, const QString &first, const QString &second)
{
    const QList<QString> visited = catalog.getCatalogItems().keys();
    return visited.indexOf(first) < visited.indexOf(second);
}

WeakItems weakItems(Catalog &catalog)
{
    WeakItems weak;
    for (const ItemPtr &item : catalog.getCatalogItems())
        weak.append(item);
    return weak;
}

int living(const WeakItems &items)
{
    return static_cast<int>(std::count_if(items.begin(), items.end(), [](const auto &item) { return item; }));
}

} // namespace

class CatalogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void isLinkedAndValidOnlyWhenLoaded();
    void addsAPlaceForAnUnknownKey();
    void keepsDefectCodesPerProfile();
    void hangsItemsUnderTheirParents();
    void choosesWhoAnswersForACode_data();
    void choosesWhoAnswersForACode();
    void passesOverEmptyPointers();
    void reportsOrphansOnStandardOutput();
    void linksParentLoopsLikeAllOthers_data();
    void linksParentLoopsLikeAllOthers();
    void keptPartOfALoopStaysUsable();
};

void CatalogTest::startsEmpty()
{
    Catalog catalog(QStringLiteral(" Id \u00E9"));
    QCOMPARE(catalog.catalogId(), QStringLiteral(" Id \u00E9"));
    QCOMPARE(catalog.status(), Catalog::NotLoaded);
    QVERIFY(!catalog.IsValid());
    QVERIFY(catalog.profile().isNull());
    QVERIFY(catalog.getCatalogItems().isEmpty());
}

void CatalogTest::isLinkedAndValidOnlyWhenLoaded()
{
    for (auto status : {Catalog::NotLoaded, Catalog::Loaded, Catalog::LoadFailed}) {
        const bool isLoaded = status == Catalog::Loaded;
        const CatalogSptr catalog = makeCatalog();
        const ItemPtr item = addItem(*catalog, text("C"), QString(), text("AB"));
        const ItemPtr orphan = addItem(*catalog, text("O"), text("nobody"));
        StandardOutputCapture output;
        catalog->setStatus(status);
        QCOMPARE(output.take().isEmpty(), !isLoaded);
        QCOMPARE(catalog->status(), status);
        QCOMPARE(catalog->IsValid(), isLoaded);
        QCOMPARE(catalog->getItemById(QString())->getChildItems().size(), isLoaded ? 1 : 0);
        QCOMPARE(item->catalog(), isLoaded ? catalog.data() : nullptr);
        QCOMPARE(orphan->catalog(), isLoaded ? catalog.data() : nullptr);
        QCOMPARE(catalog->getItem(text("AB")), isLoaded ? item : ItemPtr());
    }
}

void CatalogTest::addsAPlaceForAnUnknownKey()
{
    Catalog catalog(QStringLiteral("catalog"));
    QVERIFY(!catalog.getItemById(text("A")));
    QCOMPARE(catalog.getCatalogItems().keys(), QStringList{text("A")});
    const ItemPtr item = ItemPtr::create();
    catalog.getItemById(text("a")) = item;
    QCOMPARE(catalog.getCatalogItems().value(text("a")), item);
    QVERIFY(!catalog.getItemById(text("A")));
    catalog.getItemById(QString()) = item;
    QCOMPARE(catalog.getItemById(text("")), item);
    QVERIFY(!catalog.getItem(text("A")));
    catalog.getItem(text("a")) = item;
    QCOMPARE(catalog.getItem(text("a")), item);
    QVERIFY(!catalog.getItem(text("A")));
    QCOMPARE(catalog.getCatalogItems().size(), 3);
}

void CatalogTest::keepsDefectCodesPerProfile()
{
    using Codes = QHash<QString, QString>;
    const Codes early = {{text("A"), text("1")}, {text("B"), text("2")}};
    const Codes late = {{text("C"), text("3")}};
    Catalog catalog(QStringLiteral("catalog"));
    catalog.setContinousDefectCodes(text("P"), early);
    QCOMPARE(catalog.getContinousDefectCodes(), Codes());

    catalog.setProfile(text("P"));
    QCOMPARE(catalog.getContinousDefectCodes(), early);
    catalog.setContinousDefectCodes(text("P"), late);
    QCOMPARE(catalog.getContinousDefectCodes(), late);
    catalog.setProfile(text("p"));
    QCOMPARE(catalog.getContinousDefectCodes(), Codes());
    catalog.getContinousDefectCodes() = early; // the place itself, now in the table
    catalog.setProfile(text("P"));
    QCOMPARE(catalog.getContinousDefectCodes(), late);
    catalog.setProfile(text("p"));
    QCOMPARE(catalog.getContinousDefectCodes(), early);
}

// With that many code classes, some are linked ahead of the root and some behind it.
void CatalogTest::hangsItemsUnderTheirParents()
{
    for (int number = 0; number < 50; ++number) {
        const QString classId = QStringLiteral("C%1").arg(number);
        const CatalogSptr catalog = makeCatalog();
        const QList<ItemPtr> chain = {catalog->getItemById(QString()), addItem(*catalog, classId, text("")),
                                      addItem(*catalog, text("B"), classId, text("BA")),
                                      addItem(*catalog, text("E"), text("B"), text("BAA")),
                                      addItem(*catalog, text("F"), text("E"))};
        StandardOutputCapture output;
        catalog->setStatus(Catalog::Loaded);
        QCOMPARE(output.take(), QByteArray());
        for (int place = 0; place < chain.size(); ++place) {
            QCOMPARE(chain.at(place)->getChildItems(), chain.mid(place + 1, 1));
            QCOMPARE(chain.at(place)->catalog(), catalog.data());
        }
        QCOMPARE(catalog->getItem(text("BA")), chain.at(2));
        QCOMPARE(catalog->getItem(text("BAA")), chain.at(3));
        QCOMPARE(catalog->getItem(QString()), chain.at(0)); // not one of those without a code
    }
}

void CatalogTest::choosesWhoAnswersForACode_data()
{
    QTest::addColumn<QString>("firstId");
    QTest::addColumn<bool>("isFirstChosenAheadOfSecond");
    QTest::addColumn<bool>("isFirstChosenBehindSecond");
    QTest::addColumn<QString>("secondParentId");

    QTest::newRow("parent and child") << "B%1" << false << false << "B%1";
    QTest::newRow("unrelated") << "B%1" << true << false << "C";
    QTest::newRow("no id, and one elsewhere") << "" << true << true << "C";
    // The second one names the empty id as its parent, so it counts as a child of an item without id.
    QTest::newRow("no id, and one under the root") << "" << false << true << "";
}

// The order in which items are linked follows from their keys, so enough keys show both orders, whatever
// the hash seed is.
void CatalogTest::choosesWhoAnswersForACode()
{
    QFETCH(QString, firstId);
    QFETCH(QString, secondParentId);
    int ahead = 0;
    for (int number = 0; number < 100; ++number) {
        const auto numbered = [number](QString id) { return id.replace(text("%1"), text("%1").arg(number)); };
        const CatalogSptr catalog = makeCatalog();
        const ItemPtr codeClass = addItem(*catalog, text("C"), QString());
        const ItemPtr first = addItem(*catalog, numbered(text("B%1")), text("C"), text("AB"));
        const ItemPtr second = addItem(*catalog, numbered(text("E%1")), numbered(secondParentId), text("AB"));
        first->setId(numbered(firstId));
        const bool isAhead = isVisitedBefore(*catalog, numbered(text("B%1")), second->id());
        ahead += isAhead ? 1 : 0;
        StandardOutputCapture output;
        catalog->setStatus(Catalog::Loaded);
        QCOMPARE(output.take(), QByteArray());
        QTEST(catalog->getItem(text("AB")) == first,
              isAhead ? "isFirstChosenAheadOfSecond" : "isFirstChosenBehindSecond");
        QVERIFY(catalog->getItem(text("AB")) == first || catalog->getItem(text("AB")) == second);
        QCOMPARE(catalog->getItemById(numbered(text("B%1"))), first);
        QCOMPARE(catalog->getItemById(second->id()), second);
        QCOMPARE(first->catalog(), catalog.data());
        QCOMPARE(codeClass->getChildItems().contains(first), !first->id().isEmpty());
    }
    QVERIFY2(ahead > 0 && ahead < 100, qPrintable(QString::number(ahead)));
}

void CatalogTest::passesOverEmptyPointers()
{
    const CatalogSptr catalog = makeCatalog();
    const ItemPtr item = addItem(*catalog, text("C"), QString());
    QVERIFY(!catalog->getItemById(text("empty")));
    const ItemPtr orphan = addItem(*catalog, text("O"), text("empty"), text("AB"));
    StandardOutputCapture output;
    catalog->setStatus(Catalog::Loaded);
    QVERIFY(output.take().startsWith("Parent of item:  not found!\nItem id: O\n"));
    QCOMPARE(catalog->getItemById(QString())->getChildItems(), QList<ItemPtr>{item});
    QCOMPARE(catalog->getItem(text("AB")), orphan);
    QVERIFY(!catalog->getItemById(text("empty")));
}

void CatalogTest::reportsOrphansOnStandardOutput()
{
    const CatalogSptr catalog = makeCatalog();
    const ItemPtr codeClass = addItem(*catalog, text("C"), QString());
    const ItemPtr one = addItem(*catalog, QStringLiteral("B\u00DF"), text("c"), text("AB"));
    one->setCaption(QStringLiteral("D\u00E9viation \u20AC \U0001F687 %1"));
    const ItemPtr other = addItem(*catalog, text("E"), text("gone"));
    const ItemPtr child = addItem(*catalog, text("F"), text("E"));
    StandardOutputCapture output;
    catalog->setStatus(Catalog::Loaded);
    const QByteArray written = output.take();

    const QByteArray first = "Parent of item: D\xC3\xA9viation \xE2\x82\xAC \xF0\x9F\x9A\x87 %1 not found!\n"
                             "Item id: B\xC3\x9F\n"
                             "Catalog id: CAT\xC3\x84LOG\n";
    const QByteArray second = "Parent of item:  not found!\nItem id: E\nCatalog id: CAT\xC3\x84LOG\n";
    const bool isOneFirst = isVisitedBefore(*catalog, one->id(), other->id());
    QCOMPARE(written, isOneFirst ? first + second : second + first);

    QVERIFY(catalog->IsValid());
    QCOMPARE(catalog->getItem(text("AB")), one);
    QCOMPARE(one->catalog(), catalog.data());
    QCOMPARE(other->getChildItems(), QList<ItemPtr>{child});
    QCOMPARE(catalog->getItemById(QString())->getChildItems(), QList<ItemPtr>{codeClass});
    QVERIFY(codeClass->getChildItems().isEmpty());
}

void CatalogTest::linksParentLoopsLikeAllOthers_data()
{
    QTest::addColumn<QString>("links");
    QTest::addColumn<int>("loops");
    QTest::addColumn<int>("times");

    const QString trees = text("a:b b:c c:a t:b u:t v:t w:a C: D:C");
    QString longOne = text("t:5 u:t");
    for (int number = 0; number < 100000; ++number)
        longOne += QStringLiteral(" %1:%2").arg(number).arg((number + 1) % 100000);
    QTest::newRow("no loop") << "C: D:C" << 0 << 1;
    QTest::newRow("no loop, linked twice") << "C: D:C" << 0 << 2;
    QTest::newRow("item under itself") << "a:a" << 1 << 1;
    QTest::newRow("item under itself, linked twice") << "a:a" << 1 << 2;
    QTest::newRow("two items") << "a:b b:a" << 1 << 1;
    QTest::newRow("two loops") << "a:b b:a x:y y:z z:x t:x" << 2 << 1;
    QTest::newRow("with trees") << trees << 1 << 1;
    QTest::newRow("with trees, linked twice") << trees << 1 << 2;
    QTest::newRow("long") << longOne << 1 << 1;
}

void CatalogTest::linksParentLoopsLikeAllOthers()
{
    QFETCH(QString, links);
    QFETCH(int, loops);
    QFETCH(int, times);
    for (bool isKept : {false, true}) {
        CatalogSptr catalog = makeCatalog();
        addItems(*catalog, links);
        StandardOutputCapture output;
        for (int time = 0; time < times; ++time)
            catalog->setStatus(Catalog::Loaded);
        QCOMPARE(output.take(), QByteArray());

        int linked = 0;
        for (const ItemPtr &item : catalog->getCatalogItems()) {
            QCOMPARE(item->catalog(), catalog.data());
            for (const ItemPtr &child : item->getChildItems())
                QCOMPARE(child->parentId(), item->id());
            linked += item->getChildItems().size();
        }
        QCOMPARE(linked, times * (catalog->getCatalogItems().size() - 1));

        const WeakItems weak = weakItems(*catalog);
        QList<ItemPtr> kept = isKept ? catalog->getCatalogItems().values() : QList<ItemPtr>();
        catalog.reset();
        int stillLinked = 0;
        for (const ItemPtr &item : qAsConst(kept))
            stillLinked += item->getChildItems().size();
        // Each loop is open in one place, and everything else is as it was.
        QCOMPARE(stillLinked, isKept ? linked - times * loops : 0);
        kept.clear();
        QCOMPARE(living(weak), 0);
    }
}

void CatalogTest::keptPartOfALoopStaysUsable()
{
    const QHash<QString, QString> childrenOffTheLoop = {
        {text("a"), text("w")}, {text("b"), text("t")}, {text("c"), text("")}, {text("t"), text("uv")}};
    for (const QString &kept : childrenOffTheLoop.keys()) {
        CatalogSptr catalog = makeCatalog();
        addItems(*catalog, text("a:b b:c c:a t:b u:t v:t w:a"));
        catalog->setStatus(Catalog::Loaded);
        const WeakItems items = weakItems(*catalog);
        ItemPtr item = catalog->getItemById(kept);
        catalog.reset();
        QVERIFY(!item->catalog() && item->getFields().isEmpty());
        QString children;
        for (const ItemPtr &child : item->getChildItems())
            children += child->id() > text("c") ? child->id() : QString();
        std::sort(children.begin(), children.end());
        QCOMPARE(children, childrenOffTheLoop.value(kept));
        item.reset();
        QCOMPARE(living(items), 0);
    }
}

QTEST_GUILESS_MAIN(CatalogTest)

#include "CatalogTest.moc"
