// Catalog items and their input fields: properties, orders, and what is left when items or catalogs go.

#include "catalogs/model/CatalogItem.h"
#include "catalogs/model/Catalog.h"
#include "catalogs/model/CatalogInputField.h"

#include <QVector>
#include <QWeakPointer>
#include <QtTest>

#include <climits>

using Orvida::Catalogs::Catalog;
using Orvida::Catalogs::CatalogInputField;
using Orvida::Catalogs::CatalogItem;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Catalogs::TypeFlags;
using ItemPtr = QSharedPointer<CatalogItem>;

namespace {

const QString profile = QStringLiteral("P1");

ItemPtr makeItem(const QString &id, int sortOrder, const QString &parentId = QString())
{
    auto item = ItemPtr::create();
    item->setId(id);
    item->setSortOrder(sortOrder);
    item->setParentId(parentId);
    return item;
}

CatalogInputField makeField(const QString &caption, int sortOrder)
{
    CatalogInputField field;
    field.setCaption(caption);
    field.setSortOrder(sortOrder);
    return field;
}

// "A", "B" and so on.
QString letter(int place)
{
    return QString(QLatin1Char(static_cast<char>('A' + place)));
}

QString idsOf(const QList<ItemPtr> &items)
{
    QString ids;
    for (const ItemPtr &item : items)
        ids += item->id();
    return ids;
}

QString captionsOf(const QList<CatalogInputField> &fields)
{
    QString captions;
    for (const CatalogInputField &field : fields)
        captions += field.caption();
    return captions;
}

// A linked catalog of `depth` items, each the parent of the next one and of `leaves` childless ones. Ids
// are "0", "1" and so on downwards.
CatalogSptr comb(int depth, int leaves)
{
    auto catalog = CatalogSptr::create(QStringLiteral("comb"));
    auto &items = catalog->getCatalogItems();
    items.insert(QString(), ItemPtr::create());
    QString parentId;
    for (int level = 0; level < depth; ++level) {
        const QString id = QString::number(level);
        items.insert(id, makeItem(id, 0, parentId));
        for (int leaf = 0; leaf < leaves; ++leaf)
            items.insert(id + letter(leaf), makeItem(id + letter(leaf), 1, id));
        parentId = id;
    }
    catalog->setStatus(Catalog::Loaded);
    return catalog;
}

// Levels below `item`, along first children, without recursion.
int depthBelow(ItemPtr item)
{
    int depth = 0;
    while (!item->getChildItems().isEmpty()) {
        item = item->getChildItems().first();
        ++depth;
    }
    return depth;
}

} // namespace

class CatalogItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void keepsAnyTypeFlags();
    void ordersChildrenAndFields_data();
    void ordersChildrenAndFields();
    void ordersChildrenOnlyOnce();
    void listsAChildAsOftenAsItWasAdded();
    void copiesOfAFieldAreIndependent();
    void keepsFieldsOfProfilesApart();
    void ordersFieldsOnlyOncePerProfile();
    void hasNoFieldsWithoutCatalog();
    void goesWithATreeOfAnyDepth_data();
    void goesWithATreeOfAnyDepth();
    void outlivesItsCatalogWithItsChildren();
};

void CatalogItemTest::startsEmpty()
{
    CatalogItem item;
    const CatalogItem &fresh = item;
    for (const QString &text :
         {fresh.id(), fresh.parentId(), fresh.caption(), fresh.code(), fresh.followers(), fresh.item(),
          fresh.remarks(), fresh.iconId(), fresh.observationText(), fresh.closeCode()})
        QVERIFY(text.isNull());
    QCOMPARE(int(fresh.typeFlags()), 0);
    QCOMPARE(fresh.sortOrder(), 0);
    QCOMPARE(fresh.constructionType(), 0);
    QVERIFY(!fresh.autoPicture() && !fresh.isVirtual());
    QVERIFY(!item.catalog());
    QVERIFY(item.getChildItems().isEmpty() && item.getFields().isEmpty());

    const CatalogInputField field;
    for (const QString &text :
         {field.prefix(), field.suffix(), field.observationTextParamName(), field.step()})
        QVERIFY(text.isNull());
    QCOMPARE(field.sortOrder(), 0);
    QCOMPARE(qint64(field.typeFlags()), qint64(0));
}

void CatalogItemTest::keepsAnyTypeFlags()
{
    CatalogItem item;
    for (int bits : {4, INT_MIN, -1, 0x5A3C0F81}) {
        item.setTypeFlags(QFlag(bits));
        QCOMPARE(int(item.typeFlags()), bits);
    }
}

void CatalogItemTest::ordersChildrenAndFields_data()
{
    QTest::addColumn<QVector<int>>("sortOrders");
    QTest::addColumn<QString>("order");

    QTest::newRow("none") << QVector<int>{} << "";
    QTest::newRow("different") << QVector<int>{30, 10, 20} << "BCA";
    QTest::newRow("negative ones first") << QVector<int>{0, -1, 1} << "BAC";
    QTest::newRow("two equal") << QVector<int>{1, 1} << "AB";
    QTest::newRow("three equal") << QVector<int>{1, 1, 1} << "ABC";
    QTest::newRow("four equal") << QVector<int>{1, 1, 1, 1} << "DCAB";
    QTest::newRow("two pairs") << QVector<int>{1, 0, 1, 0} << "DBCA";
}

void CatalogItemTest::ordersChildrenAndFields()
{
    QFETCH(QVector<int>, sortOrders);
    Catalog catalog(QStringLiteral("catalog"));
    catalog.setProfile(profile);
    CatalogItem item;
    item.setCatalog(&catalog);
    for (int place = 0; place < sortOrders.size(); ++place) {
        item.addChildItem(makeItem(letter(place), sortOrders.at(place)));
        item.addField(profile, makeField(letter(place), sortOrders.at(place)));
    }
    for (int time = 0; time < 2; ++time) {
        QTEST(idsOf(item.getChildItems()), "order");
        QTEST(captionsOf(item.getFields()), "order");
    }
}

// A, B and C come late, with falling sort orders that lie before those of all others.
void CatalogItemTest::ordersChildrenOnlyOnce()
{
    const QList<QPair<int, QString>> cases = {
        {0, QStringLiteral("CBA")}, {1, QStringLiteral("DCBA")}, {3, QStringLiteral("DEFCBA")}};
    for (const auto &[early, ids] : cases) {
        CatalogItem item;
        for (int place = early - 1; place >= 0; --place)
            item.addChildItem(makeItem(letter(3 + place), 10 + place));
        QCOMPARE(item.getChildItems().size(), early);
        for (int place = 2; place >= 0; --place)
            item.addChildItem(makeItem(letter(place), place));
        QCOMPARE(idsOf(item.getChildItems()), ids);
    }
}

void CatalogItemTest::listsAChildAsOftenAsItWasAdded()
{
    CatalogItem item;
    const ItemPtr child = makeItem(QStringLiteral("A"), 1);
    item.addChildItem(child);
    item.addChildItem(makeItem(QStringLiteral("B"), 0));
    item.addChildItem(child);
    QCOMPARE(idsOf(item.getChildItems()), QStringLiteral("BAA"));
    QCOMPARE(item.getChildItems().mid(1), QList<ItemPtr>({child, child}));
}

void CatalogItemTest::copiesOfAFieldAreIndependent()
{
    const qint64 bits = Q_INT64_C(1) << 40 | 1;
    CatalogInputField field = makeField(QStringLiteral("caption"), 3);
    field.setPrefix(QStringLiteral("prefix"));
    field.setSuffix(QStringLiteral("suffix"));
    field.setObservationTextParamName(QStringLiteral("@Q1"));
    field.setStep(QStringLiteral("0.5"));
    field.setTypeFlags(TypeFlags(bits));
    Catalog catalog(QStringLiteral("catalog"));
    catalog.setProfile(profile);
    CatalogItem item;
    item.setCatalog(&catalog);
    item.addField(profile, field);

    field.setCaption(QStringLiteral("changed"));
    field.setStep(QStringLiteral("changed"));
    field.setTypeFlags(TypeFlags(0));
    QList<CatalogInputField> copies = item.getFields();
    copies[0].setPrefix(QStringLiteral("changed"));

    const CatalogInputField &stored = item.getFields().first();
    QCOMPARE(QStringList({stored.caption(), stored.prefix(), stored.suffix(),
                          stored.observationTextParamName(), stored.step()}),
             QStringList({QStringLiteral("caption"), QStringLiteral("prefix"), QStringLiteral("suffix"),
                          QStringLiteral("@Q1"), QStringLiteral("0.5")}));
    QCOMPARE(stored.sortOrder(), 3);
    QCOMPARE(qint64(stored.typeFlags()), bits);
}

void CatalogItemTest::keepsFieldsOfProfilesApart()
{
    const QString other = QStringLiteral("p1");
    Catalog catalog(QStringLiteral("catalog"));
    CatalogItem item;
    item.setCatalog(&catalog);
    item.addField(profile, makeField(QStringLiteral("B"), 2));
    item.addField(other, makeField(QStringLiteral("Y"), 2));
    item.addField(profile, makeField(QStringLiteral("A"), 1));
    item.addField(other, makeField(QStringLiteral("X"), 1));
    item.addField(QStringLiteral(""), makeField(QStringLiteral("0"), 1));

    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("0")); // the null profile is the empty one
    catalog.setProfile(profile);
    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("AB"));
    catalog.setProfile(other);
    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("XY"));
    catalog.setProfile(profile);
    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("AB"));
}

void CatalogItemTest::ordersFieldsOnlyOncePerProfile()
{
    const QString unknown = QStringLiteral("unknown");
    Catalog catalog(QStringLiteral("catalog"));
    catalog.setProfile(unknown);
    CatalogItem item;
    item.setCatalog(&catalog);
    item.addField(profile, makeField(QStringLiteral("C"), 3));
    QVERIFY(item.getFields().isEmpty());
    item.addField(unknown, makeField(QStringLiteral("B"), 2));
    item.addField(unknown, makeField(QStringLiteral("A"), 1));
    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("BA"));

    catalog.setProfile(profile);
    item.addField(profile, makeField(QStringLiteral("B"), 2));
    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("BC"));
    item.addField(profile, makeField(QStringLiteral("A"), 1));
    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("BCA"));
}

void CatalogItemTest::hasNoFieldsWithoutCatalog()
{
    Catalog catalog(QStringLiteral("catalog"));
    CatalogItem item;
    item.addField(QString(), makeField(QStringLiteral("B"), 2));
    QVERIFY(item.getFields().isEmpty());
    item.addField(QString(), makeField(QStringLiteral("A"), 1));
    item.setCatalog(&catalog);
    QCOMPARE(captionsOf(item.getFields()), QStringLiteral("AB"));
    item.setCatalog(nullptr);
    QVERIFY(item.getFields().isEmpty());
}

void CatalogItemTest::goesWithATreeOfAnyDepth_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("leaves");
    QTest::addColumn<int>("kept");

    QTest::newRow("chain, nothing kept") << 1000000 << 0 << -1;
    QTest::newRow("chain, top kept") << 1000000 << 0 << 0;
    QTest::newRow("chain, middle kept") << 300000 << 0 << 150000;
    QTest::newRow("comb, nothing kept") << 100000 << 2 << -1;
    QTest::newRow("comb, top kept") << 100000 << 2 << 0;
}

// One stack frame for each level would overflow any usual stack.
void CatalogItemTest::goesWithATreeOfAnyDepth()
{
    QFETCH(int, depth);
    QFETCH(int, leaves);
    QFETCH(int, kept);
    CatalogSptr catalog = comb(depth, leaves);
    const auto weak = [&catalog](int level) {
        return catalog->getItemById(QString::number(level)).toWeakRef();
    };
    const QWeakPointer<CatalogItem> bottom = weak(depth - 1);
    const QWeakPointer<CatalogItem> aboveKept = weak(qMax(kept - 1, 0));
    ItemPtr item = kept < 0 ? ItemPtr() : catalog->getItemById(QString::number(kept));
    catalog.reset();
    if (item) {
        QVERIFY(bottom);
        QCOMPARE(bool(aboveKept), kept == 0);
        QVERIFY(!item->catalog());
        QCOMPARE(depthBelow(item), depth - 1 - kept + (leaves > 0 ? 1 : 0));
        item.reset();
    }
    QVERIFY(!bottom);
    QVERIFY(!aboveKept);
}

void CatalogItemTest::outlivesItsCatalogWithItsChildren()
{
    CatalogSptr catalog = comb(3, 2);
    const QWeakPointer<CatalogItem> root = catalog->getItemById(QString()).toWeakRef();
    const ItemPtr kept = catalog->getItemById(QStringLiteral("1"));
    kept->addField(QString(), makeField(QStringLiteral("A"), 1));
    QCOMPARE(kept->catalog(), catalog.data());
    QCOMPARE(captionsOf(kept->getFields()), QStringLiteral("A"));
    catalog.reset();

    QVERIFY(!root);
    QCOMPARE(kept->getChildItems().size(), 3);
    QCOMPARE(kept->getChildItems().first()->id(), QStringLiteral("2"));
    QCOMPARE(kept->getChildItems().first()->getChildItems().size(), 2);
    QVERIFY(!kept->catalog());
    QVERIFY(!kept->getChildItems().last()->catalog());
    QVERIFY(kept->getFields().isEmpty());
}

QTEST_GUILESS_MAIN(CatalogItemTest)

#include "CatalogItemTest.moc"
