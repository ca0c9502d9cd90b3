// Catalog items and their input fields: their orders, and what is left when items or catalogs go.

#include "catalogs/model/CatalogItem.h"
#include "catalogs/model/Catalog.h"

#include "support/TestSupport.h"
#include <QWeakPointer>

#include <QtTest>

using namespace Orvida::Catalogs;
using Orvida::Tests::text;
using ItemPtr = QSharedPointer<CatalogItem>;

namespace {

ItemPtr makeItem(const QString &id, int sortOrder, const QString &parentId = QString())
{
    auto item = ItemPtr::create();
    item->setId(id);
    item->setSortOrder(sortOrder);
    item->setParentId(parentId);
    return item;
}

// Adds a child and a field for each name, such as "7A", which begins with its sort order.
void addChildrenAndFields(CatalogItem &item, const char *profile, const char *names)
{
    for (const QString &name : text(names).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        item.addChildItem(makeItem(name, name.left(1).toInt()));
        CatalogInputField field;
        field.setCaption(name);
        field.setSortOrder(name.left(1).toInt());
        item.addField(text(profile), field);
        field.setCaption(QString()); // what was added is a copy
    }
}

QString childrenOf(CatalogItem &item)
{
    QStringList ids;
    for (const ItemPtr &child : item.getChildItems())
        ids += child ? child->id() : text("null");
    return ids.join(QLatin1Char(' '));
}

QString fieldsOf(CatalogItem &item)
{
    QStringList captions;
    for (const CatalogInputField &field : item.getFields())
        captions += field.caption();
    return captions.join(QLatin1Char(' '));
}

// A linked catalog of `depth` items, each the parent of the next one and, in a comb, of another one. Ids are
// "0", "1" and so on downwards, and "-0", "-1" and so on.
CatalogSptr chain(int depth, bool isComb)
{
    auto catalog = CatalogSptr::create(text("deep"));
    auto &items = catalog->getCatalogItems();
    items.reserve(depth);
    items.insert(QString(), ItemPtr::create());
    QString parentId;
    for (int level = 0; level < depth; ++level) {
        const QString id = QString::number(level);
        items.insert(id, makeItem(id, 0, parentId));
        if (isComb)
            items.insert(QLatin1Char('-') + id, makeItem(QLatin1Char('-') + id, 1, id));
        parentId = id;
    }
    catalog->setStatus(Catalog::Loaded);
    return catalog;
}

} // namespace

class CatalogItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordersChildrenAndFieldsOnce_data();
    void ordersChildrenAndFieldsOnce();
    void listsEveryChildThatWasAdded();
    void keepsFieldsOfProfilesApart();
    void goesWithATreeOfAnyDepth();
    void outlivesItsCatalogWithATreeOfAnyDepth();
};

void CatalogItemTest::ordersChildrenAndFieldsOnce_data()
{
    QTest::addColumn<QByteArray>("early");
    QTest::addColumn<QString>("ordered");
    QTest::addColumn<QByteArray>("late");
    QTest::addColumn<QString>("orderedWithLate");

    const auto row = [](const char *name, const QByteArray &early, const char *ordered,
                        const QByteArray &late, const char *orderedWithLate) {
        QTest::newRow(name) << early << ordered << late << orderedWithLate;
    };
    row("different", "3A 1B 2C", "1B 2C 3A", "", "1B 2C 3A");
    row("equal", "1A 1B 1C 1D", "1D 1C 1A 1B", "", "1D 1C 1A 1B");
    row("late", "4A 3B", "3B 4A", "2C 1D", "3B 4A 2C 1D");
    row("all late", "", "", "2C 1D", "2C 1D");
}

void CatalogItemTest::ordersChildrenAndFieldsOnce()
{
    Catalog catalog(text("catalog"));
    CatalogItem item;
    item.setCatalog(&catalog);
    QFETCH(QByteArray, early);
    addChildrenAndFields(item, "", early);
    QTEST(childrenOf(item), "ordered");
    QTEST(fieldsOf(item), "ordered");
    QFETCH(QByteArray, late);
    addChildrenAndFields(item, "", late);
    QTEST(childrenOf(item), "orderedWithLate");
    QTEST(fieldsOf(item), "orderedWithLate");
}

void CatalogItemTest::listsEveryChildThatWasAdded()
{
    CatalogItem item;
    const ItemPtr twice = makeItem(text("twice"), 1);
    for (const ItemPtr &child : {twice, ItemPtr(), twice})
        item.addChildItem(child);
    QCOMPARE(childrenOf(item), text("null twice twice"));
}

void CatalogItemTest::keepsFieldsOfProfilesApart()
{
    Catalog catalog(text("catalog"));
    CatalogItem item;
    addChildrenAndFields(item, "P", "2B 1A");
    addChildrenAndFields(item, "p", "2Y 1X");
    addChildrenAndFields(item, "", "2K 1J");
    QCOMPARE(fieldsOf(item), QString()); // it has no catalog
    item.setCatalog(&catalog);
    QCOMPARE(fieldsOf(item), text("1J 2K")); // the null profile is the empty one
    catalog.setProfile(text("P"));
    QCOMPARE(fieldsOf(item), text("1A 2B"));
    addChildrenAndFields(item, "P", "0C");
    addChildrenAndFields(item, "p", "0Z"); // not late, as nobody has asked for this profile yet
    QCOMPARE(fieldsOf(item), text("1A 2B 0C"));
    catalog.setProfile(text("p"));
    QCOMPARE(fieldsOf(item), text("0Z 1X 2Y"));
    item.setCatalog(nullptr);
    QCOMPARE(fieldsOf(item), QString());
}

// Here and below, one stack frame for each level would overflow any usual stack.
void CatalogItemTest::goesWithATreeOfAnyDepth()
{
    CatalogSptr catalog = chain(1000000, false);
    const QWeakPointer<CatalogItem> bottom = catalog->getItemById(text("999999"));
    catalog.reset();
    QVERIFY(!bottom);
}

void CatalogItemTest::outlivesItsCatalogWithATreeOfAnyDepth()
{
    CatalogSptr catalog = chain(30000, true);
    ItemPtr kept = catalog->getItemById(text("1"));
    const QWeakPointer<CatalogItem> above = catalog->getItemById(text("0"));
    const QWeakPointer<CatalogItem> bottom = catalog->getItemById(text("-29999"));
    catalog.reset();
    QVERIFY(!above && bottom && !kept->catalog() && !bottom.toStrongRef()->catalog());
    QCOMPARE(childrenOf(*kept), text("2 -1"));
    kept.reset();
    QVERIFY(!bottom);
}

QTEST_GUILESS_MAIN(CatalogItemTest)

#include "CatalogItemTest.moc"
