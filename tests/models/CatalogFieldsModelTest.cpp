// The fields of an item as a table.

#include "models/CatalogFieldsModel.h"
#include "models/CatalogTreeModel.h"

#include "models/ModelCatalogs.h"
#include "support/TestSupport.h"

#include <QAbstractItemModelTester>
#include <QtTest>

using namespace Orvida::Catalogs;
using namespace Orvida::Models;
using namespace Orvida::Tests;

class CatalogFieldsModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheFieldsOfEveryItem();
    void tellsEveryProperty();
};

void CatalogFieldsModelTest::showsTheFieldsOfEveryItem()
{
    CatalogTreeModel tree;
    CatalogFieldsModel model;
    connect(&tree, &CatalogTreeModel::profileChanged, &model, &CatalogFieldsModel::refresh);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    int rows = 0;
    for (const NamedCatalog &named : modelCatalogs()) {
        tree.setCatalog(named.catalog);
        if (!named.catalog)
            continue;
        const auto items = named.catalog->getCatalogItems();
        for (const auto &item : items) {
            model.setItem(named.catalog, item);
            for (const CatalogProfile &profile : named.catalog->profiles()) {
                tree.setProfile(profile.key);
                QStringList captions;
                for (const CatalogInputField &field : qAsConst(item->getFields()))
                    captions << field.caption();
                QStringList shown;
                for (int row = 0; row < model.rowCount(); ++row)
                    shown << model.index(row, CatalogFieldsModel::CaptionColumn).data().toString();
                QCOMPARE(shown, captions);
                rows += shown.size();
            }
        }
    }
    QVERIFY(rows > 500);
    model.setItem(CatalogSptr(), model.item());
    QCOMPARE(model.rowCount(), 0);
}

void CatalogFieldsModelTest::tellsEveryProperty()
{
    CatalogInputField field;
    field.setCaption(text("caption"));
    field.setDataType(CatalogInputField::Decimal);
    field.setUnit(text("mm"));
    field.setMinimumValue(text("0,5"));
    field.setMaximumValue(text("9"));
    field.setStep(text("0.1"));
    field.setPrecission(2);
    field.setMaximumTextLength(7);
    field.setDefaultValue(text("default"));
    field.setInputFormat(text("input"));
    field.setDisplayFormat(text("display"));
    field.setBoundColumn(text("column"));
    field.setObservationTextParamName(text("@W"));
    field.setPrefix(text("prefix"));
    field.setSuffix(text("suffix"));
    field.setIsMandatory(true);
    field.setItemList({{text("v"), text("V"), text("Vau")}, {text("w"), text("W"), QString()}});
    Catalog catalog(text("id"));
    const auto item = QSharedPointer<CatalogItem>::create();
    catalog.getCatalogItems().insert(QString(), item);
    catalog.setStatus(Catalog::Loaded);
    item->addField(QString(), field);
    CatalogFieldsModel model;
    model.setItem(CatalogSptr(&catalog, [](Catalog *) {}), item);

    QStringList columns;
    for (int column = 0; column < model.columnCount(); ++column)
        columns << model.headerData(column, Qt::Horizontal).toString() + text(": ")
                       + model.index(0, column).data().toString();
    QCOMPARE(columns.join(text(" | ")), text("Caption: caption | Type: Decimal | Range: 0,5 … 9 | Unit: mm | "
                                             "Default: default | Values: V, W"));
    QStringList roles;
    const auto names = model.roleNames();
    for (int role = CatalogFieldsModel::CaptionRole; role < CatalogFieldsModel::EndOfRoles; ++role) {
        const QVariant value = model.index(0, 0).data(role);
        roles << text(names.value(role)) + text("=")
                     + (value.type() == QVariant::StringList ? value.toStringList().join(QLatin1Char('/'))
                                                             : value.toString());
    }
    QCOMPARE(roles.join(QLatin1Char(' ')),
             text("caption=caption dataType=3 unit=mm minimumValue=0,5 maximumValue=9 step=0.1 decimals=2 "
                  "maximumTextLength=7 defaultValue=default inputFormat=input displayFormat=display "
                  "boundColumn=column placeholder=@W prefix=prefix suffix=suffix isMandatory=true "
                  "isReadonly=false isVisible=false listValues=v/w listCaptions=V/W"));
}

QTEST_GUILESS_MAIN(CatalogFieldsModelTest)

#include "CatalogFieldsModelTest.moc"
