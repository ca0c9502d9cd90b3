// What a search shows of the tree.

#include "models/CatalogSearchModel.h"

#include "models/ModelCatalogs.h"
#include "support/TestSupport.h"

#include <QAbstractItemModelTester>
#include <QtTest>

using namespace Orvida::Catalogs;
using namespace Orvida::Models;
using namespace Orvida::Tests;

namespace {

// Two classes; the list of the field of B has other values under the profile Q. Lists, columns and codes are
// in the clear here and scrambled when the catalog is loaded.
CatalogSptr smallCatalog()
{
    return loaded(scrambledForm(R"(
        <CATPRO><PRO_PK>P</PRO_PK></CATPRO><CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>1</PRO_SortOrder></CATPRO>
        <CLASS><CLASS_PK>1</CLASS_PK><CLASS_Item>Revêtement</CLASS_Item><CLASS_SortOrder>1</CLASS_SortOrder></CLASS>
        <BASECODE><BC_PK>A</BC_PK><BC_Class_FK>1</BC_Class_FK><BC_Code>RFI</BC_Code><BC_Item>Fissure</BC_Item>
          <BC_Remarks>main-d’œuvre</BC_Remarks></BASECODE>
        <CHAREXT><CE_PK>AL</CE_PK><CE_BaseCode_FK>A</CE_BaseCode_FK><CE_Code>RFIL</CE_Code>
          <CE_Item>Longitudinale</CE_Item></CHAREXT>
        <CLASS><CLASS_PK>2</CLASS_PK><CLASS_Item>Joints</CLASS_Item><CLASS_SortOrder>2</CLASS_SortOrder></CLASS>
        <BASECODE><BC_PK>B</BC_PK><BC_Class_FK>2</BC_Class_FK><BC_Code>JEP</BC_Code><BC_Item>Épaufrure</BC_Item></BASECODE>
        <LC><LC_PK>p</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>L</LC_Class_ID></LC>
        <LIST><LIST_Class_FK>p</LIST_Class_FK><LIST_Item>Voûte</LIST_Item><LIST_Caption>VO</LIST_Caption></LIST>
        <LC><LC_PK>q</LC_PK><LC_Profile_FK>Q</LC_Profile_FK><LC_Class_ID>L</LC_Class_ID></LC>
        <LIST><LIST_Class_FK>q</LIST_Class_FK><LIST_Item>77</LIST_Item></LIST>
        <COL><COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>K</COL_Column_ID><COL_DataType>TXT</COL_DataType></COL>
        <COL><COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>K</COL_Column_ID><COL_DataType>TXT</COL_DataType></COL>
        <PARAM><PARAM_PK>m</PARAM_PK></PARAM>
        <PARAMX><PX_PK>x</PX_PK><PX_BaseCode_FK>B</PX_BaseCode_FK><PX_Param_FK>m</PX_Param_FK>
          <PX_Column_ID>K</PX_Column_ID><PX_ListClass_ID>L</PX_ListClass_ID></PARAMX>)"));
}

// What shows, in the order of the tree: ids, those of matches with a star.
QString shown(const CatalogSearchModel &model, const QModelIndex &parent = QModelIndex())
{
    QString result;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        result += index.data(CatalogTreeModel::IdRole).toString()
                  + text(index.data(CatalogSearchModel::IsMatchRole).toBool() ? "* " : " ")
                  + shown(model, index);
    }
    return result;
}

} // namespace

class CatalogSearchModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsInEveryText_data();
    void findsInEveryText();
    void searchesAnewUnderAnotherProfileAndInAnotherCatalog();
    void keepsWhatIsSelectedWhileItShows();
    void isSoundOverEveryCatalog();
    void isFluentWithManySiblings();
    void staysOnTheStackWithManyLevels();
};

void CatalogSearchModelTest::findsInEveryText_data()
{
    QTest::addColumn<QString>("shows");
    for (const char *row : {"|1 A AL 2 B ",            // nothing searched for
                            "   |1 A AL 2 B ",         // no word in it
                            "rfi|1 A* AL* ",           // code, and a code that begins so
                            "EPAUFRURE|2 B* ",         // caption without accent
                            "épau JEP|2 B* ",          // words in several texts
                            "epau rfi|",               // not of one item
                            "MAIN-D’OEUVRE|1 A* AL ",  // remark, with what is below
                            "revetement|1* A AL ",     // a whole class
                            "longitudinale|1 A AL* ",  // with its parents
                            "voute|2 B* ", "vo|2 B* ", // item text and caption of a list value
                            "77|",                     // of another profile
                            "fissure longitudinale|"}) // each word in the item itself
        QTest::newRow(row) << text(row).section(QLatin1Char('|'), 1);
}

void CatalogSearchModelTest::findsInEveryText()
{
    CatalogTreeModel tree;
    CatalogSearchModel model;
    model.setSourceModel(&tree);
    tree.setCatalog(smallCatalog());
    model.setSearchText(text(QTest::currentDataTag()).section(QLatin1Char('|'), 0, 0));
    QTEST(shown(model), "shows");
    QCOMPARE(model.matchCount(), shown(model).count(QLatin1Char('*')));
}

void CatalogSearchModelTest::searchesAnewUnderAnotherProfileAndInAnotherCatalog()
{
    CatalogTreeModel tree;
    CatalogSearchModel model;
    model.setSearchText(text("77"));
    model.setSourceModel(&tree);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    tree.setCatalog(smallCatalog());
    QCOMPARE(shown(model), QString());
    tree.setProfile(text("Q"));
    QCOMPARE(shown(model), text("2 B* "));
    tree.setCatalog(catalogWithSiblings(178));
    QCOMPARE(shown(model), text("77* 177* "));
    model.setSourceModel(nullptr);
    QCOMPARE(model.matchCount(), 0);
    {
        CatalogTreeModel passing;
        passing.setCatalog(smallCatalog());
        model.setSourceModel(&passing);
        model.setSearchText(text("joints"));
        QCOMPARE(model.matchCount(), 1);
    }
    QCOMPARE(model.matchCount(), 0);
}

void CatalogSearchModelTest::keepsWhatIsSelectedWhileItShows()
{
    CatalogTreeModel tree;
    CatalogSearchModel model;
    model.setSourceModel(&tree);
    tree.setCatalog(smallCatalog());
    const QPersistentModelIndex selected = model.mapFromSource(tree.indexOfCode(text("JEP")));
    model.setSearchText(text("joints"));
    QCOMPARE(selected.data().toString(), text("Épaufrure"));
    model.setSearchText(text("fissure"));
    QVERIFY(!selected.isValid());
}

void CatalogSearchModelTest::isSoundOverEveryCatalog()
{
    CatalogTreeModel tree;
    CatalogSearchModel model;
    model.setSourceModel(&tree);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const NamedCatalog &named : modelCatalogs()) {
        model.setSearchText(text("1"));
        tree.setCatalog(named.catalog);
        for (const char *search : {"a", "", "e", "12"})
            model.setSearchText(text(search));
    }
}

// Rows that are taken out one by one take quadratic time.
void CatalogSearchModelTest::isFluentWithManySiblings()
{
    CatalogTreeModel tree;
    tree.setCatalog(catalogWithSiblings(100000));
    CatalogSearchModel model;
    model.setSourceModel(&tree);
    QCOMPARE(model.rowCount(), 100000);
    model.setSearchText(text("1"));
    QCOMPARE(model.rowCount(), 100000 - 9 * 9 * 9 * 9 * 9);
    model.setSearchText(QString());
    QCOMPARE(model.rowCount(), 100000);
}

// The proxy model maps what is selected again after each search, which takes stack for each level.
void CatalogSearchModelTest::staysOnTheStackWithManyLevels()
{
    CatalogTreeModel tree;
    tree.setCatalog(catalogWithLevels(100000));
    QVERIFY(!tree.indexOfCode(text("1000")).isValid());
    QVERIFY(!tree.indexOfCode(text("99999")).isValid());
    CatalogSearchModel model;
    model.setSourceModel(&tree);
    const QPersistentModelIndex deepest = model.mapFromSource(tree.indexOfCode(text("999")));
    model.setSearchText(text("998"));
    QCOMPARE(deepest.data().toString(), text("999"));
    QCOMPARE(model.matchCount(), 1);
}

QTEST_GUILESS_MAIN(CatalogSearchModelTest)

#include "CatalogSearchModelTest.moc"
