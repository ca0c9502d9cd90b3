// Whole catalog files, from the text to the linked tree, and back to nothing.

#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QWeakPointer>
#include <QtTest>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;
using ItemPtr = QSharedPointer<CatalogItem>;

namespace {

// Ids, in brackets behind the one of their parent.
QString treeBelow(const ItemPtr &item)
{
    QStringList children;
    for (const ItemPtr &child : item->getChildItems()) {
        const QString tree = treeBelow(child);
        children += tree.isEmpty() ? child->id() : QStringLiteral("%1[%2]").arg(child->id(), tree);
    }
    return children.join(QLatin1Char(' '));
}

QString idsOf(Catalog &catalog)
{
    QStringList ids = catalog.getCatalogItems().keys();
    ids.sort();
    return ids.join(QLatin1Char(' '));
}

} // namespace

class CatalogLoaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadsAndLeavesNothingBehind_data();
    void loadsAndLeavesNothingBehind();
};

// In the first catalog parents come late, and records of one kind are not together.
void CatalogLoaderTest::loadsAndLeavesNothingBehind_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isLoaded");
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QByteArray>("output");

    const auto row = [](const char *name, const QByteArray &content, bool isLoaded, const char *ids,
                        const char *tree, const QByteArray &output = "") {
        QTest::newRow(name) << content << isLoaded << ids << tree << output;
    };
    const QByteArray complete = catalogXml(recordsFrom(R"(
        CHAREXT PK=E2;CharExt_REF=E1;BaseCode_FK=B1
        CATALOG PK=other id
        BASECODE PK=O;Class_FK=gone;Item=Orphan;Code=ZZ
        CLASS PK=C2;SortOrder=2
        CHAREXT PK=E1;BaseCode_FK=B1
        BASECODE PK=B2;Class_FK=C1;SortOrder=8
        BASECODE PK=B1;Class_FK=C1;SortOrder=7;Code=BA
        CLASS PK=C1;SortOrder=-1)"));
    const QByteArray orphan = "Parent of item: Orphan not found!\nItem id: O\nCatalog id:  \xC3\xA9/id\n";
    const char *const ids = " B1 B2 C1 C2 E1 E2 O";
    row("complete", complete, true, ids, "C1[B1[E1[E2]] B2] C2", orphan);
    row("no file", QByteArray(), false, "", "");
    row("no records", catalogXml(""), true, "", "");
    row("parent loop", catalogXml(recordsFrom("CLASS PK=C\nCHAREXT PK=L;CharExt_REF=L")), true, " C L", "C");
    row("ends behind its records", complete.chopped(3), false, ids, "");
    row("record without key", catalogXml(recordsFrom("CLASS PK=C\nCLASS Item=D\nCLASS PK=E")), false, " C",
        "");
}

void CatalogLoaderTest::loadsAndLeavesNothingBehind()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isLoaded);
    const CatalogFolder folder;
    const QString path = folder.path(text("catalog.xml"));
    if (!content.isNull())
        folder.write(text("catalog.xml"), content);
    const LogCapture log;
    StandardOutputCapture output;
    CatalogSptr catalog = CatalogLoader().loadCatalog(path, text(" \u00E9/id"));
    QTEST(output.take(), "output");
    QCOMPARE(log.messages(), QStringList());
    QVERIFY(catalog);
    QCOMPARE(catalog->status(), isLoaded ? Catalog::Loaded : Catalog::LoadFailed);
    QCOMPARE(catalog->catalogId(), text(" \u00E9/id"));
    QTEST(idsOf(*catalog), "ids");
    QVERIFY(catalog->getItemById(text("")));
    QTEST(treeBelow(catalog->getItemById(text(""))), "tree");

    QList<QWeakPointer<CatalogItem>> items;
    for (const ItemPtr &item : catalog->getCatalogItems()) {
        QCOMPARE(item->catalog(), isLoaded ? catalog.data() : nullptr);
        items.append(item);
    }
    catalog.reset();
    for (const auto &item : qAsConst(items))
        QVERIFY(!item);
}

QTEST_GUILESS_MAIN(CatalogLoaderTest)

#include "CatalogLoaderTest.moc"
