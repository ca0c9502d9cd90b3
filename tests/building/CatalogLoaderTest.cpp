// Whole catalog files, from the text to the linked tree.

#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QWeakPointer>
#include <QtTest>

using Orvida::Catalogs::Catalog;
using Orvida::Catalogs::CatalogItem;
using Orvida::Catalogs::CatalogLoader;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Tests::CatalogFolder;
using Orvida::Tests::catalogXml;
using Orvida::Tests::field;
using Orvida::Tests::LogCapture;
using Orvida::Tests::scrambled;
using Orvida::Tests::StandardOutputCapture;
using ItemPtr = QSharedPointer<CatalogItem>;

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray element(const char *name, const QByteArray &content)
{
    return QByteArray("<") + name + ">\n" + content + "</" + name + ">\n";
}

QByteArray codeClass(const char *id, int sortOrder)
{
    return element("CLASS", field("CLASS_PK", text(id)) + scrambled("CLASS_Item", text("Class ") + text(id))
                                + field("CLASS_SortOrder", QString::number(sortOrder)));
}

// Parents come late, and records of one kind are not together.
QByteArray completeCatalog()
{
    return catalogXml(
        element("CHAREXT", field("CE_PK", text("E2")) + field("CE_CharExt_REF", text("E1"))
                               + field("CE_BaseCode_FK", text("B1")) + scrambled("CE_Code", text("BAA")))
        + element("CATALOG", field("CAT_PK", text("other id")) + field("CAT_Style", text("2147483648")))
        + element("CHAREXT", field("CE_PK", text("O")) + field("CE_BaseCode_FK", text("gone"))
                                 + scrambled("CE_Item", text("Orphan")) + scrambled("CE_Code", text("ZZ")))
        + codeClass("C2", 2)
        + element("CHAREXT",
                  field("CE_PK", text("E1")) + field("CE_BaseCode_FK", text("B1"))
                      + scrambled("CE_Item", text("Extension")) + scrambled("CE_Code", text("BAA"))
                      + scrambled("CE_ObsText", text("@CLK o'clock")) + field("CE_Remarks", text("remark 1"))
                      + field("CE_Follower", text("BAB,BAC")) + field("CE_CloseCode", text("BAZ"))
                      + field("CE_AutoPicture", text("TRUE")) + field("CE_TypeFlags", text("-2147483648"))
                      + field("CE_Construction", text("3")) + field("CE_SortOrder", text("4")))
        + element("BASECODE", field("BC_PK", text("B2")) + field("BC_Class_FK", text("C1"))
                                  + field("BC_SortOrder", text("1")))
        + element("WRAPPER", codeClass("C3", 1))
        + element("BASECODE", field("BC_PK", text("B1")) + field("BC_Class_FK", text("C1"))
                                  + scrambled("BC_Item", text("D\u00E9formation"))
                                  + scrambled("BC_Code", text("BA")) + scrambled("BC_ObsText", text("at @Q1"))
                                  + field("BC_Remarks", text("a < b")) + field("BC_CloseCode", text("BAX"))
                                  + field("BC_AutoPicture", text("true")) + field("BC_TypeFlags", text("5"))
                                  + field("BC_Construction", text("6")) + field("BC_IsVirtual", text("true"))
                                  + field("BC_SortOrder", text("7")))
        + element("CLASS", field("CLASS_PK", text("C1")) + scrambled("CLASS_Item", text("Structure"))
                               + field("CLASS_Remarks", text("remark 2"))
                               + field("CLASS_IsVirtual", text("true"))
                               + field("CLASS_SortOrder", text("-1"))));
}

// Id, code, caption, observation text, remarks, close code, followers, type flags, construction type, sort
// order, flags; a line for each item, with its children below it.
QString dump(const ItemPtr &item, int level = 0)
{
    const QStringList properties = {item->id(),
                                    item->code(),
                                    item->caption(),
                                    item->observationText(),
                                    item->remarks(),
                                    item->closeCode(),
                                    item->followers(),
                                    QString::number(int(item->typeFlags())),
                                    QString::number(item->constructionType()),
                                    QString::number(item->sortOrder()),
                                    text(item->autoPicture() ? "picture" : "")
                                        + text(item->isVirtual() ? "virtual" : "")};
    QString lines =
        QString(2 * level, QLatin1Char(' ')) + properties.join(QLatin1Char('|')) + QLatin1Char('\n');
    for (const ItemPtr &child : item->getChildItems())
        lines += dump(child, level + 1);
    return lines;
}

const char *const completeTree =
    "|||||||0|0|0|\n"
    "  C1||Structure||remark 2|||0|0|-1|virtual\n"
    "    B2|||||||0|0|1|\n"
    "    B1|BA|D\u00E9formation|at @Q1|a < b|BAX||5|6|7|picturevirtual\n"
    "      E1|BAA|Extension|@CLK o'clock|remark 1|BAZ|BAB,BAC|-2147483648|3|4|picture\n"
    "        E2|BAA||||||0|0|0|\n"
    "  C2||Class C2|||||0|0|2|\n";

QStringList idsOf(Catalog &catalog)
{
    QStringList ids = catalog.getCatalogItems().keys();
    ids.sort();
    return ids;
}

QList<QWeakPointer<CatalogItem>> weakItems(Catalog &catalog)
{
    QList<QWeakPointer<CatalogItem>> weak;
    for (const ItemPtr &item : catalog.getCatalogItems())
        weak.append(item);
    return weak;
}

} // namespace

class CatalogLoaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadsACompleteCatalog();
    void loadsAFileWithoutRecords();
    void keepsTheIdentifier();
    void reportsFailureByStatusOnly_data();
    void reportsFailureByStatusOnly();
    void loadsEachTimeAnew();
    void leavesNothingBehind_data();
    void leavesNothingBehind();

private:
    CatalogFolder m_folder;
};

void CatalogLoaderTest::loadsACompleteCatalog()
{
    const QString path = m_folder.write(text("complete.xml"), completeCatalog());
    const LogCapture log;
    StandardOutputCapture output;
    const CatalogSptr catalog = CatalogLoader().loadCatalog(path, text("id"));
    QCOMPARE(output.take(), QByteArray("Parent of item: Orphan not found!\nItem id: O\nCatalog id: id\n"));
    QCOMPARE(log.messages(), QStringList());
    QVERIFY(catalog);
    QCOMPARE(catalog->status(), Catalog::Loaded);
    QVERIFY(catalog->IsValid());
    QCOMPARE(dump(catalog->getItemById(text(""))), text(completeTree));

    QCOMPARE(idsOf(*catalog).join(QLatin1Char(' ')), text(" B1 B2 C1 C2 E1 E2 O"));
    for (const ItemPtr &item : catalog->getCatalogItems())
        QCOMPARE(item->catalog(), catalog.data());
    QCOMPARE(catalog->getItem(text("BA"))->id(), text("B1"));
    QCOMPARE(catalog->getItem(text("BAA"))->id(), text("E2")); // the child of the other one with that code
    QCOMPARE(catalog->getItem(text("ZZ"))->id(), text("O"));
    QCOMPARE(catalog->getItem(text("")), catalog->getItemById(text("")));
}

void CatalogLoaderTest::loadsAFileWithoutRecords()
{
    const QString path = m_folder.write(text("empty.xml"), catalogXml(""));
    const CatalogSptr catalog = CatalogLoader().loadCatalog(path, text("id"));
    QCOMPARE(catalog->status(), Catalog::Loaded);
    QVERIFY(catalog->profile().isNull());
    QVERIFY(catalog->getContinousDefectCodes().isEmpty());
    QCOMPARE(idsOf(*catalog), QStringList{text("")});
    QCOMPARE(dump(catalog->getItemById(text(""))), text("|||||||0|0|0|\n"));
    QVERIFY(catalog->getItemById(text(""))->getFields().isEmpty());
}

void CatalogLoaderTest::keepsTheIdentifier()
{
    const QString path = m_folder.write(text("identifier.xml"), completeCatalog());
    for (const QString &id : {QString(), text(" \u00DCnusual/id "), path}) {
        StandardOutputCapture output;
        QCOMPARE(CatalogLoader().loadCatalog(path, id)->catalogId(), id);
        QCOMPARE(CatalogLoader().loadCatalog(QString(), id)->catalogId(), id);
        QVERIFY(output.take().endsWith(text("Catalog id: %1\n").arg(id).toUtf8()));
    }
}

void CatalogLoaderTest::reportsFailureByStatusOnly_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("ids");

    int number = 0;
    const auto file = [this, &number](const QByteArray &content) {
        return m_folder.write(QStringLiteral("failing%1.xml").arg(++number), content);
    };
    const QByteArray baseCode =
        element("BASECODE", field("BC_PK", text("B")) + field("BC_Class_FK", text("C")));
    const QByteArray orphan =
        element("BASECODE", field("BC_PK", text("O")) + field("BC_Class_FK", text("gone")));
    const QByteArray whole = catalogXml(codeClass("C", 1) + baseCode + orphan);
    QTest::newRow("no path") << QString() << "";
    QTest::newRow("missing file") << m_folder.path(text("missing.xml")) << "";
    QTest::newRow("folder") << m_folder.path(text(".")) << "";
    QTest::newRow("empty file") << file("") << "";
    QTest::newRow("no XML") << file("catalog") << "";
    QTest::newRow("ends between records") << file(whole.left(whole.indexOf("</OVCAT"))) << " B C O";
    QTest::newRow("ends in a record") << file(whole.left(whole.indexOf("</BASECODE"))) << " C";
    QTest::newRow("wrong end tag") << file(QByteArray(whole).replace("/BC_PK", "/bc_pk")) << " C";
    QTest::newRow("second root") << file(whole + "<OVCAT/>") << " B C O";
    QTest::newRow("code class without key")
        << file(catalogXml(codeClass("C", 1) + "<CLASS/>" + baseCode)) << " C";
    QTest::newRow("parameter without key")
        << file(catalogXml(codeClass("C", 1) + "<PARAM><PARAM_PK></PARAM_PK></PARAM>" + baseCode)) << " C";
}

void CatalogLoaderTest::reportsFailureByStatusOnly()
{
    QFETCH(QString, path);
    const LogCapture log;
    StandardOutputCapture output;
    const CatalogSptr catalog = CatalogLoader().loadCatalog(path, text("id"));
    QCOMPARE(output.take(), QByteArray());
    QCOMPARE(log.messages(), QStringList());
    QVERIFY(catalog);
    QCOMPARE(catalog->status(), Catalog::LoadFailed);
    QVERIFY(!catalog->IsValid());
    QVERIFY(catalog->profile().isNull());
    QTEST(idsOf(*catalog).join(QLatin1Char(' ')), "ids");
    const ItemPtr root = catalog->getItemById(text(""));
    QVERIFY(root && root->id().isEmpty());
    for (const ItemPtr &item : catalog->getCatalogItems()) {
        QVERIFY(item->getChildItems().isEmpty());
        QVERIFY(!item->catalog());
    }
}

void CatalogLoaderTest::loadsEachTimeAnew()
{
    const QString path = m_folder.write(text("twice.xml"), completeCatalog());
    CatalogLoader loader;
    StandardOutputCapture output;
    const CatalogSptr first = loader.loadCatalog(path, text("id"));
    const CatalogSptr second = loader.loadCatalog(path, text("id"));
    output.take();
    QVERIFY(first != second);
    QCOMPARE(dump(first->getItemById(text(""))), dump(second->getItemById(text(""))));
    QCOMPARE(idsOf(*first), idsOf(*second));
    for (const ItemPtr &item : first->getCatalogItems()) {
        QVERIFY(item != second->getItemById(item->id()));
        QCOMPARE(item->catalog(), first.data());
    }
}

void CatalogLoaderTest::leavesNothingBehind_data()
{
    QTest::addColumn<QByteArray>("content");

    const QByteArray loop =
        element("CHAREXT", field("CE_PK", text("L")) + field("CE_CharExt_REF", text("L")));
    QTest::newRow("loaded") << completeCatalog();
    QTest::newRow("parent loop") << catalogXml(codeClass("C", 1) + loop);
    QTest::newRow("failed") << completeCatalog().chopped(3);
}

void CatalogLoaderTest::leavesNothingBehind()
{
    QFETCH(QByteArray, content);
    const QString path = m_folder.write(text("life.xml"), content);
    StandardOutputCapture output;
    CatalogSptr catalog = CatalogLoader().loadCatalog(path, text("id"));
    output.take();
    const auto items = weakItems(*catalog);
    const QWeakPointer<Catalog> weakCatalog = catalog;
    QVERIFY(items.size() > 1);
    catalog.reset();
    QVERIFY(!weakCatalog);
    for (const auto &item : items)
        QVERIFY(!item);
}

QTEST_GUILESS_MAIN(CatalogLoaderTest)

#include "CatalogLoaderTest.moc"
