// The JSON of orvida-catalog holds everything that the library holds: both are walked side by side.

#include "catalogs/building/CatalogLoader.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

QByteArray jsonOf(const QString &file, const QStringList &options = {})
{
    QProcess process;
    process.start(text(ORVIDA_CATALOG_TOOL), QStringList{text("json"), file} + options);
    return process.waitForFinished(60000) && process.exitCode() == 0 ? process.readAllStandardOutput()
                                                                     : QByteArray();
}

// A text as it reads back: null stays apart from empty.
QString textOf(const QJsonObject &object, const char *name)
{
    const QJsonValue value = object.value(QLatin1String(name));
    if (value.isNull())
        return QString();
    return value.isString() ? value.toString(QString()) : text("not a text: ") + QLatin1String(name);
}

QString quoted(const QString &value)
{
    return value.isNull() ? text("null") : QLatin1Char('"') + value + QLatin1Char('"');
}

// Both descriptions name every property in the same order.
QString description(const CatalogInputField &field)
{
    QStringList parts;
    for (const QString &value :
         {field.caption(), field.boundColumn(), field.observationTextParamName(), field.prefix(),
          field.suffix(), field.unit(), field.minimumValue(), field.maximumValue(), field.step(),
          field.defaultValue(), field.inputFormat(), field.displayFormat()})
        parts << quoted(value);
    for (const qint64 number :
         {qint64(field.dataType()), qint64(field.sortOrder()), qint64(field.isVisible()),
          qint64(field.isReadonly()), qint64(field.isMandatory()), qint64(field.precission()),
          qint64(field.maximumTextLength()), qint64(field.typeFlags())})
        parts << QString::number(number);
    for (const Orvida::Shared::ListItem &entry : field.itemList())
        parts << quoted(entry.value().toString()) << quoted(entry.caption()) << quoted(entry.itemText());
    return parts.join(QLatin1Char('|'));
}

QString description(const QJsonObject &field)
{
    QStringList parts;
    for (const char *name :
         {"caption", "boundColumn", "observationTextParamName", "prefix", "suffix", "unit", "minimumValue",
          "maximumValue", "step", "defaultValue", "inputFormat", "displayFormat"})
        parts << quoted(textOf(field, name));
    for (const char *name : {"dataType", "sortOrder", "isVisible", "isReadonly", "isMandatory", "precission",
                             "maximumTextLength", "typeFlags"})
        parts << QString::number(field.value(QLatin1String(name)).toVariant().toLongLong());
    for (const QJsonValue &entry : field.value(QLatin1String("itemList")).toArray())
        parts << quoted(textOf(entry.toObject(), "value")) << quoted(textOf(entry.toObject(), "caption"))
              << quoted(textOf(entry.toObject(), "itemText"));
    return parts.join(QLatin1Char('|'));
}

template <typename Fields>
QStringList sortedDescriptions(const Fields &fields)
{
    QStringList descriptions;
    for (const auto &field : fields)
        descriptions << description(field);
    descriptions.sort();
    return descriptions;
}

QList<QJsonObject> objectsOf(const QJsonValue &array)
{
    QList<QJsonObject> objects;
    for (const QJsonValue &value : array.toArray())
        objects << value.toObject();
    return objects;
}

} // namespace

class JsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsWhatTheLibraryHolds_data();
    void holdsWhatTheLibraryHolds();
    void isTheSameForEverySeed();
    void saysTheSameCompactly();

private:
    void compareItem(Catalog &catalog, CatalogItem &item, const QJsonObject &json,
                     const QStringList &profiles);

    CatalogFolder m_folder;
};

void JsonTest::holdsWhatTheLibraryHolds_data()
{
    QTest::addColumn<QString>("file");

    QTest::newRow("the tunnels sample") << text(ORVIDA_SAMPLES "/tunnels.xml");
    QTest::newRow("orphans, a loop, fields of the root, odd profiles")
        << m_folder.write(text("odd.xml"), catalogXml(R"(
<CATALOG><CAT_Style>9007199254740993</CAT_Style></CATALOG>
<BASECODE><BC_PK>orphan</BC_PK><BC_Class_FK>none</BC_Class_FK><BC_Remarks><![CDATA[]]></BC_Remarks></BASECODE>
<BASECODE><BC_PK>loop1</BC_PK><BC_Class_FK>loop2</BC_Class_FK><BC_TypeFlags>-1</BC_TypeFlags></BASECODE>
<BASECODE><BC_PK>loop2</BC_PK><BC_Class_FK>loop1</BC_Class_FK></BASECODE>
<PARAM><PARAM_PK>p</PARAM_PK><PARAM_TypeFlags>9007199254740993</PARAM_TypeFlags></PARAM>
<PARAMX><PX_PK>1</PX_PK><PX_Param_FK>p</PX_Param_FK><PX_Column_ID>AAAA</PX_Column_ID></PARAMX>
<PARAMX><PX_PK>2</PX_PK><PX_BaseCode_FK>loop1</PX_BaseCode_FK><PX_Column_ID>AAAA</PX_Column_ID></PARAMX>
<COL><COL_Profile_FK>undefined profile</COL_Profile_FK><COL_Column_ID>050A1428</COL_Column_ID>
<COL_DataType>TXT</COL_DataType></COL>
)"));
}

void JsonTest::holdsWhatTheLibraryHolds()
{
    QFETCH(QString, file);
    CatalogSptr catalog;
    {
        const StandardOutputCapture orphanText;
        catalog = CatalogLoader().loadCatalog(file, QString());
    }
    QVERIFY(catalog->IsValid());
    const QString chosenProfile = catalog->profile();

    QJsonParseError error;
    const QJsonObject json = QJsonDocument::fromJson(jsonOf(file), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(textOf(json, "profile"), chosenProfile);
    QVERIFY(json.value(QLatin1String("style")).isString());
    const QStringList profiles = json.value(QLatin1String("profiles")).toVariant().toStringList();

    const QList<QJsonObject> items = objectsOf(json.value(QLatin1String("items")));
    QCOMPARE(items.size(), catalog->getCatalogItems().size());
    int fieldsOfAllProfiles = 0;
    for (const QJsonObject &item : items) {
        const auto known = catalog->getCatalogItems().value(textOf(item, "id"));
        QVERIFY(known);
        compareItem(*catalog, *known, item, profiles);
        fieldsOfAllProfiles += item.value(QLatin1String("fields")).toObject().size();
    }
    QVERIFY(fieldsOfAllProfiles > 0);

    const QVariantMap codes = json.value(QLatin1String("continousDefectCodes")).toVariant().toMap();
    for (const QString &profile : profiles) {
        catalog->setProfile(profile);
        QVariantMap expected;
        const QHash<QString, QString> &table = catalog->getContinousDefectCodes();
        for (auto code = table.cbegin(); code != table.cend(); ++code)
            expected.insert(code.key(), code.value());
        QCOMPARE(codes.value(profile).toMap(), expected);
    }
}

void JsonTest::compareItem(Catalog &catalog, CatalogItem &item, const QJsonObject &json,
                           const QStringList &profiles)
{
    QCOMPARE(quoted(textOf(json, "id")), quoted(item.id()));
    QCOMPARE(quoted(textOf(json, "parentId")), quoted(item.parentId()));
    QCOMPARE(quoted(textOf(json, "code")), quoted(item.code()));
    QCOMPARE(quoted(textOf(json, "caption")), quoted(item.caption()));
    QCOMPARE(quoted(textOf(json, "followers")), quoted(item.followers()));
    QCOMPARE(quoted(textOf(json, "item")), quoted(item.item()));
    QCOMPARE(quoted(textOf(json, "remarks")), quoted(item.remarks()));
    QCOMPARE(quoted(textOf(json, "iconId")), quoted(item.iconId()));
    QCOMPARE(quoted(textOf(json, "observationText")), quoted(item.observationText()));
    QCOMPARE(quoted(textOf(json, "closeCode")), quoted(item.closeCode()));
    QCOMPARE(json.value(QLatin1String("typeFlags")).toInt(), int(item.typeFlags()));
    QCOMPARE(json.value(QLatin1String("sortOrder")).toInt(), item.sortOrder());
    QCOMPARE(json.value(QLatin1String("constructionType")).toInt(), item.constructionType());
    QCOMPARE(json.value(QLatin1String("autoPicture")).toBool(), item.autoPicture());
    QCOMPARE(json.value(QLatin1String("isVirtual")).toBool(), item.isVirtual());

    // Equal sort orders come in an order of this process here and in a settled one there.
    QStringList children;
    QList<int> sortOrders;
    for (const QJsonValue &id : json.value(QLatin1String("children")).toArray()) {
        children << id.toString();
        sortOrders << catalog.getCatalogItems().value(id.toString())->sortOrder();
    }
    QVERIFY(std::is_sorted(sortOrders.cbegin(), sortOrders.cend()));
    QStringList expectedChildren;
    for (const auto &child : item.getChildItems())
        expectedChildren << child->id();
    children.sort();
    expectedChildren.sort();
    QCOMPARE(children, expectedChildren);

    const QJsonObject fields = json.value(QLatin1String("fields")).toObject();
    for (const QString &profile : profiles) {
        catalog.setProfile(profile);
        QCOMPARE(sortedDescriptions(objectsOf(fields.value(profile))), sortedDescriptions(item.getFields()));
    }
}

void JsonTest::isTheSameForEverySeed()
{
    const QString file = text(ORVIDA_SAMPLES "/tunnels.xml");
    const QByteArray expected = jsonOf(file);
    for (const char *seed : {"0", "1", "2", "12345"}) {
        qputenv("QT_HASH_SEED", seed);
        QCOMPARE(jsonOf(file), expected);
    }
    qunsetenv("QT_HASH_SEED");
}

void JsonTest::saysTheSameCompactly()
{
    const QString file = text(ORVIDA_SAMPLES "/tunnels.xml");
    const QByteArray compact = jsonOf(file, {text("--compact")});
    QCOMPARE(compact.count('\n'), 1);
    QCOMPARE(QJsonDocument::fromJson(compact), QJsonDocument::fromJson(jsonOf(file)));
}

QTEST_GUILESS_MAIN(JsonTest)

#include "JsonTest.moc"
