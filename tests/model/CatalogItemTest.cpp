// Catalog items as hosts fill and keep them: late additions, fields per profile, and what remains when items
// or catalogs are destroyed. Items that come from files are tested in catalogs/.

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

// Adds a child and a field for each name, such as "7A", whose first digit is the sort order.
void addChildrenAndFields(CatalogItem &item, const char *profile, const char *names)
{
    for (const QString &name : text(names).split(QLatin1Char(' '))) {
        item.addChildItem(makeItem(name, name.left(1).toInt()));
        CatalogInputField field;
        field.setCaption(name);
        field.setSortOrder(name.left(1).toInt());
        item.addField(text(profile), field);
        field.setCaption(QString()); // the item has a copy
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

} // namespace

class CatalogItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordersOnceAndAppendsLaterOnes();
    void listsEveryChildThatWasAdded();
    void keepsFieldsOfProfilesApart();
    void hasNoFieldsWithoutACatalog();
    void outlivesItsCatalogWithATreeOfAnyDepth();
};

void CatalogItemTest::ordersOnceAndAppendsLaterOnes()
{
    Catalog catalog(text("catalog"));
    CatalogItem empty, equal, item;
    for (CatalogItem *one : {&empty, &equal, &item})
        one->setCatalog(&catalog);
    QCOMPARE(childrenOf(empty) + fieldsOf(empty), QString());
    addChildrenAndFields(empty, "", "2C 1D");
    addChildrenAndFields(equal, "", "1A 1B 1C 1D");
    addChildrenAndFields(item, "", "3A 1B 2C");
    for (const auto order : {childrenOf, fieldsOf}) {
        QCOMPARE(order(empty), text("2C 1D"));
        QCOMPARE(order(equal), text("1D 1C 1A 1B"));
        QCOMPARE(order(item), text("1B 2C 3A"));
    }
    addChildrenAndFields(item, "", "2D 0E");
    for (const auto order : {childrenOf, fieldsOf})
        QCOMPARE(order(item), text("1B 2C 3A 2D 0E"));
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
    item.setCatalog(&catalog);
    addChildrenAndFields(item, "P", "2B 1A");
    addChildrenAndFields(item, "p", "2Y 1X");
    addChildrenAndFields(item, "", "2K 1J");
    QCOMPARE(fieldsOf(item), text("1J 2K")); // the null profile is the empty one
    catalog.setProfile(text("P"));
    QCOMPARE(fieldsOf(item), text("1A 2B"));
    addChildrenAndFields(item, "P", "0C");
    addChildrenAndFields(item, "p", "0Z"); // not late: this profile has not been asked for yet
    QCOMPARE(fieldsOf(item), text("1A 2B 0C"));
    item.getFields().first().setCaption(text("changed"));
    catalog.setProfile(text("p"));
    QCOMPARE(fieldsOf(item), text("0Z 1X 2Y"));
    catalog.setProfile(text("P"));
    QCOMPARE(fieldsOf(item), text("changed 2B 0C"));
}

// Writing into its list has no effect, neither on the next call nor once the item has a catalog.
void CatalogItemTest::hasNoFieldsWithoutACatalog()
{
    Catalog catalog(text("catalog"));
    CatalogItem item, other;
    addChildrenAndFields(item, "", "1A");
    for (CatalogItem *one : {&item, &other}) {
        QVERIFY(one->getFields().isEmpty());
        one->getFields().append(CatalogInputField());
        QVERIFY(one->getFields().isEmpty());
    }
    item.setCatalog(&catalog);
    QCOMPARE(fieldsOf(item), text("1A"));
    item.setCatalog(nullptr);
    QVERIFY(item.getFields().isEmpty());
}

// A comb: each item is the parent of the next one and of another one. One stack frame per level would
// overflow any usual stack.
void CatalogItemTest::outlivesItsCatalogWithATreeOfAnyDepth()
{
    constexpr int depth = 40000;
    auto catalog = CatalogSptr::create(text("deep"));
    catalog->getCatalogItems().insert(QString(), ItemPtr::create());
    for (int level = 0; level < depth; ++level) {
        const QString id = QString::number(level);
        const QString parentId = level > 0 ? QString::number(level - 1) : QString();
        for (const auto &item : {makeItem(id, 0, parentId), makeItem(QLatin1Char('-') + id, 1, id)})
            catalog->getCatalogItems().insert(item->id(), item);
    }
    catalog->setStatus(Catalog::Loaded);
    ItemPtr kept = catalog->getItemById(text("1"));
    const QWeakPointer<CatalogItem> above = catalog->getItemById(text("0"));
    const QWeakPointer<CatalogItem> bottom = catalog->getItemById(text("-%1").arg(depth - 1));
    catalog.reset();
    QVERIFY(!above && bottom && !kept->catalog() && !bottom.toStrongRef()->catalog());
    QCOMPARE(childrenOf(*kept), text("2 -1"));
    kept.reset();
    QVERIFY(!bottom);
}

QTEST_GUILESS_MAIN(CatalogItemTest)

#include "CatalogItemTest.moc"
