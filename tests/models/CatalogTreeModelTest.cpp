// The tree model over every catalog that there is: sound for Qt's own tester, and the same tree as the
// items'.

#include "models/CatalogTreeModel.h"

#include "models/ModelCatalogs.h"
#include "support/TestSupport.h"

#include <QAbstractItemModelTester>
#include <QSet>
#include <QtTest>

using namespace Orvida::Catalogs;
using namespace Orvida::Models;
using namespace Orvida::Tests;
using ItemPtr = QSharedPointer<CatalogItem>;

namespace {

// The tree that the items make, a line per item; an item that was there already is left out, as the model
// does, level by level.
QStringList expectedLines(const CatalogSptr &catalog)
{
    QStringList lines;
    QList<ItemPtr> level;
    if (catalog)
        level << catalog->getItemById(QString());
    QSet<ItemPtr> seen(level.begin(), level.end());
    while (!level.isEmpty()) {
        const ItemPtr item = level.takeFirst();
        if (!item)
            continue;
        for (const ItemPtr &child : item->getChildItems()) {
            if (!child || seen.contains(child))
                continue;
            seen.insert(child);
            level << child;
            lines << item->id() + text(" > ") + child->id();
        }
    }
    return lines;
}

// The same by the model, with each index found again from below and by its item.
QStringList linesOf(const CatalogTreeModel &model)
{
    QStringList lines;
    QModelIndexList level = {QModelIndex()};
    while (!level.isEmpty()) {
        const QModelIndex parent = level.takeFirst();
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            const bool isConsistent = index.parent() == parent && index.row() == row
                                      && model.indexOf(CatalogTreeModel::itemAt(index)) == index;
            lines << parent.data(CatalogTreeModel::IdRole).toString() + text(isConsistent ? " > " : " ? ")
                         + index.data(CatalogTreeModel::IdRole).toString();
            level << index;
        }
    }
    return lines;
}

} // namespace

class CatalogTreeModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheTreeOfEveryCatalog();
    void tellsOfItems();
    void tellsOfAnotherProfile();
    void isFluentWithManySiblings();
};

void CatalogTreeModelTest::showsTheTreeOfEveryCatalog()
{
    CatalogTreeModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    int lines = 0;
    for (const NamedCatalog &named : modelCatalogs()) {
        model.setCatalog(named.catalog);
        QCOMPARE(named.name + linesOf(model).join(text("\n")),
                 named.name + expectedLines(named.catalog).join(text("\n")));
        lines += linesOf(model).size();
    }
    QVERIFY(lines > 500);
}

void CatalogTreeModelTest::tellsOfItems()
{
    CatalogTreeModel model;
    model.setCatalog(loaded(scrambledForm(R"(
        <CLASS><CLASS_PK>C</CLASS_PK><CLASS_Item>Class</CLASS_Item><CLASS_IsVirtual>true</CLASS_IsVirtual></CLASS>
        <BASECODE><BC_PK>B</BC_PK><BC_Class_FK>C</BC_Class_FK><BC_Code>RF</BC_Code><BC_Item>Crack</BC_Item>
          <BC_Remarks>wide</BC_Remarks><BC_TypeFlags>5</BC_TypeFlags></BASECODE>)")));
    const QModelIndex code = model.indexOfCode(text("RF"));
    QStringList told;
    for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole), int(CatalogTreeModel::IdRole),
                           int(CatalogTreeModel::CodeRole), int(CatalogTreeModel::CaptionRole),
                           int(CatalogTreeModel::RemarksRole), int(CatalogTreeModel::IsVirtualRole),
                           int(CatalogTreeModel::TypeFlagsRole)})
        told << code.data(role).toString();
    QCOMPARE(told.join(QLatin1Char('|')), text("Crack|wide|B|RF|Crack|wide|false|5"));
    QCOMPARE(code.siblingAtColumn(CatalogTreeModel::CodeColumn).data().toString(), text("RF"));
    QVERIFY(code.parent().data(CatalogTreeModel::IsVirtualRole).toBool());
    QCOMPARE(CatalogTreeModel::itemAt(code), model.catalog()->findItem(text("RF")));
    QVERIFY(!CatalogTreeModel::itemAt(QModelIndex()) && !model.indexOfCode(text("rf")).isValid());
    QVERIFY(!model.indexOfCode(QString()).isValid()); // the root does not show
}

void CatalogTreeModelTest::tellsOfAnotherProfile()
{
    CatalogTreeModel model;
    QStringList told;
    connect(&model, &CatalogTreeModel::profileChanged, [&told](const QString &profile) { told << profile; });
    model.setProfile(text("nowhere"));
    model.setCatalog(catalogWithSiblings(1));
    model.setProfile(text("P"));
    QCOMPARE(told, QStringList(text("P")));
    QCOMPARE(model.catalog()->profile(), text("P"));
    QCOMPARE(model.profile(), text("P"));
}

// A row or a parent that is searched for among its siblings would take hours here.
void CatalogTreeModelTest::isFluentWithManySiblings()
{
    constexpr int count = 100000;
    CatalogTreeModel model;
    model.setCatalog(catalogWithSiblings(count));
    QCOMPARE(model.rowCount(), count);
    for (int row = 0; row < count; ++row) {
        const QModelIndex index = model.index(row, 0);
        QVERIFY(!index.parent().isValid());
        QCOMPARE(model.indexOfCode(QString::number(row)).row(), row);
    }
}

QTEST_GUILESS_MAIN(CatalogTreeModelTest)

#include "CatalogTreeModelTest.moc"
