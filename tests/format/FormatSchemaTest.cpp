// The schemas of both forms, as xmllint applies them, against the loader: they accept and refuse the same
// records.

#include "catalogs/building/CatalogLoader.h"
#include "catalogs/format/CatalogFormat.h"
#include "support/TestSupport.h"
#include "tools/NewCatalog.h"
#include "tools/TextForm.h"

#include <QProcess>
#include <QtTest>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;
using Orvida::Tools::FormChange;
using Orvida::Tools::newCatalog;

namespace {

using Field = CatalogFormat::Field;
using Kind = CatalogFormat::Kind;
using Record = CatalogFormat::Record;

const QString scrambledSchema = QStringLiteral(ORVIDA_SCHEMAS "/catalog.xsd");
const QString readableSchema = QStringLiteral(ORVIDA_SCHEMAS "/catalog-readable.xsd");

// The messages of xmllint about the file at `path`; empty when `schema` accepts it.
QString complaints(const QString &schema, const QString &path)
{
    QProcess lint;
    lint.start(text(ORVIDA_XMLLINT), {text("--noout"), text("--schema"), schema, path});
    if (!lint.waitForFinished())
        return lint.errorString();
    const QString messages = QString::fromUtf8(lint.readAllStandardError());
    const bool isValid = lint.exitCode() == 0 && messages.endsWith(text(" validates\n"));
    return isValid ? QString() : messages + QLatin1Char('.');
}

QByteArray contentOf(const char *path)
{
    QFile file(text(ORVIDA_SOURCES) + text(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A piece of XML in the manual, counted from 1.
QByteArray manualExample(int number)
{
    return QString::fromUtf8(contentOf("/docs/format.md"))
        .section(text("```xml\n"), number, number)
        .section(text("```"), 0, 0)
        .toUtf8();
}

bool loads(const QString &records)
{
    return loaded(records.toUtf8())->IsValid();
}

QString scrambledRecords(const QString &readable)
{
    return QString::fromUtf8(scrambledForm(readable.toUtf8()));
}

QString element(const QString &name, const QString &content)
{
    return QStringLiteral("<%1>%2</%1>\n").arg(name, content);
}

// Whether `schema` accepts a file with these records.
bool takes(const QString &schema, const QString &records)
{
    const CatalogFolder folder;
    return complaints(schema, folder.write(text("catalog.xml"), catalogXml(records.toUtf8()))).isEmpty();
}

const char *textFor(Kind kind)
{
    switch (kind) {
    case Kind::Text:
    case Kind::ScrambledText: return "Béton";
    case Kind::Integer:
    case Kind::Integer64: return "-7";
    case Kind::Boolean: return "True";
    case Kind::ParameterType:
    case Kind::ColumnType: return "DAT";
    }
    return "";
}

bool isNeeded(const Field &field)
{
    return field.isRequired || field.kind == Kind::ColumnType;
}

// A record in the readable form: the fields that are needed, those that are not if `isWhole`, and `odd` with
// `text`, or left out if that is null. The last field comes first.
QString readable(const Record &record, bool isWhole, const Field *odd = nullptr, const QString &text = {})
{
    QString fields;
    for (const Field &field : record.fields) {
        const QString value = &field == odd ? text : QString::fromUtf8(textFor(field.kind));
        if (!value.isNull() && (isWhole || isNeeded(field) || &field == odd))
            fields.prepend(element(field.name, value));
    }
    return element(record.name, fields);
}

} // namespace

class FormatSchemaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesGoodCatalogs_data();
    void takesGoodCatalogs();
    void takesTheRecordsThatTheLoaderTakes_data();
    void takesTheRecordsThatTheLoaderTakes();
    void takesWhatAFieldMayHold_data();
    void takesWhatAFieldMayHold();
    void refusesWhatALoadPassesOver_data();
    void refusesWhatALoadPassesOver();
    void isNamedInTheRoot();
};

void FormatSchemaTest::takesGoodCatalogs_data()
{
    QTest::addColumn<QByteArray>("readable");
    QTest::newRow("sample") << contentOf("/samples/tunnels.xml");
    QTest::newRow("manual") << manualExample(1);
    QTest::newRow("new") << newCatalog(text("K"), text("en"), {text("A"), text("B")});
}

void FormatSchemaTest::takesGoodCatalogs()
{
    QFETCH(QByteArray, readable);
    const CatalogFolder folder;
    const QString clear = folder.write(text("readable.xml"), readable);
    const QString scrambled = folder.write(text("scrambled.xml"), FormChange(readable).scrambled());
    QCOMPARE(complaints(readableSchema, clear), QString());
    QCOMPARE(complaints(scrambledSchema, scrambled), QString());
    QVERIFY(complaints(scrambledSchema, clear).contains(text("COL_Column_ID")));
}

void FormatSchemaTest::takesTheRecordsThatTheLoaderTakes_data()
{
    QTest::addColumn<QString>("records");
    QTest::addColumn<bool>("isTaken");
    for (const Record &record : CatalogFormat::records()) {
        const QByteArray name = record.name.data();
        QTest::newRow(name + " with every field") << readable(record, true) << true;
        QTest::newRow(name + " with what it needs") << readable(record, false) << true;
        for (const Field *field : record.requiredFields()) {
            QTest::newRow(name + " without " + field->name.data()) << readable(record, true, field) << false;
            QTest::newRow(name + " with empty " + field->name.data())
                << readable(record, true, field, text("")) << false;
            QTest::newRow(name + " with white " + field->name.data())
                << readable(record, true, field, text(" ")) << true;
        }
    }
    const QString profile = readable(*CatalogFormat::record(QLatin1String("CATPRO")), true);
    QTest::newRow("no record") << QString() << true;
    QTest::newRow("roots in roots") << element(text("OVCat"), element(text("OVCAT"), profile)) + profile
                                    << true;
    QTest::newRow("refused in the inner root") << element(text("OVCat"), text("<CATPRO/>")) << false;
}

void FormatSchemaTest::takesTheRecordsThatTheLoaderTakes()
{
    QFETCH(QString, records);
    QFETCH(bool, isTaken);
    const QString scrambled = scrambledRecords(records);
    QCOMPARE(takes(readableSchema, records), isTaken);
    QCOMPARE(takes(scrambledSchema, scrambled), isTaken);
    QCOMPARE(loads(scrambled), isTaken);
}

void FormatSchemaTest::takesWhatAFieldMayHold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QString>("refused");
    QTest::newRow("integer") << "PRO_SortOrder"
                             << "|0|7|-7|+7|007| 7 |2147483647|-2147483648"
                             << "x|7.0|1e3|1 2|0x7|2147483648|-2147483649";
    QTest::newRow("64-bit integer") << "CAT_Style"
                                    << "|9223372036854775807|-9223372036854775808"
                                    << "x|9223372036854775808|-9223372036854775809";
    QTest::newRow("boolean") << "CPX_IsStart"
                             << "|true|false|TRUE|False|fAlSe"
                             << " |true |1|0|yes|tru";
    QTest::newRow("parameter type") << "PARAM_DataType"
                                    << "|TXT|INT|DEC|BOL|DAT"
                                    << "txt| TXT|TEXT";
    QTest::newRow("column type") << "COL_DataType"
                                 << "TXT|INT|DEC|BOL|DAT"
                                 << "|txt|TXT |TEXT";
    QTest::newRow("scrambled text") << "LC_Caption"
                                    << "|0D|0d1FaB"
                                    << "0|0D1|0G|00|0D00| 0D|Beton";
    QTest::newRow("required scrambled text") << "LC_Class_ID"
                                             << "0D|0d1FaB"
                                             << "|0|00|000D|GG|  ";
}

void FormatSchemaTest::takesWhatAFieldMayHold()
{
    QFETCH(QString, name);
    QFETCH(QString, taken);
    QFETCH(QString, refused);
    const Field &field = *CatalogFormat::field(name);
    const Record &record = *CatalogFormat::recordOf(field);
    // Scrambled, except for the text in question.
    const QString mark = QStringLiteral("<!-- here -->");
    const QString pattern = scrambledRecords(readable(record, true, &field, mark));
    const auto recordsWith = [&](const QString &text) { return QString(pattern).replace(mark, text); };
    for (const QString &text : taken.split(QLatin1Char('|'))) {
        QVERIFY2(takes(scrambledSchema, recordsWith(text)), qPrintable(text));
        QVERIFY2(loads(recordsWith(text)), qPrintable(text));
    }
    for (const QString &text : refused.split(QLatin1Char('|')))
        QVERIFY2(!takes(scrambledSchema, recordsWith(text)), qPrintable(text));
}

void FormatSchemaTest::refusesWhatALoadPassesOver_data()
{
    QTest::addColumn<QString>("records");
    QTest::newRow("unknown record") << "<CATPROFILE/>";
    QTest::newRow("misspelt record") << "<Catpro><PRO_PK>P</PRO_PK></Catpro>";
    QTest::newRow("unknown field") << "<CATPRO><PRO_PK>P</PRO_PK><PRO_Name>N</PRO_Name></CATPRO>";
    QTest::newRow("field of another record") << "<CATPRO><PRO_PK>P</PRO_PK><CPX_PK>N</CPX_PK></CATPRO>";
    QTest::newRow("field given twice") << "<CATPRO><PRO_PK>P</PRO_PK><PRO_PK>Q</PRO_PK></CATPRO>";
    QTest::newRow("attribute") << "<CATPRO PRO_SortOrder='1'><PRO_PK>P</PRO_PK></CATPRO>";
    QTest::newRow("attribute of a field") << "<CATPRO><PRO_PK xml:lang='en'>P</PRO_PK></CATPRO>";
    QTest::newRow("text between records") << "CATPRO";
    QTest::newRow("text between fields") << "<CATPRO>P<PRO_PK>P</PRO_PK></CATPRO>";
    QTest::newRow("element in a field") << "<CATPRO><PRO_PK>P<b>Q</b></PRO_PK></CATPRO>";
    QTest::newRow("field without record") << "<PRO_PK>P</PRO_PK>";
    QTest::newRow("column without type") << "<COL><COL_Profile_FK>P</COL_Profile_FK>"
                                            "<COL_Column_ID>0D</COL_Column_ID></COL>";
}

void FormatSchemaTest::refusesWhatALoadPassesOver()
{
    QFETCH(QString, records);
    QVERIFY(loads(records));
    QVERIFY(!takes(readableSchema, records));
    QVERIFY(!takes(scrambledSchema, records));
}

void FormatSchemaTest::isNamedInTheRoot()
{
    // The second catalog of the manual is the start of a file that names its schema.
    const QByteArray start = manualExample(2);
    QVERIFY(start.contains("catalog-readable.xsd"));
    const QByteArray file = start + "<CATPRO><PRO_PK>P</PRO_PK></CATPRO></OVCAT>";
    const CatalogFolder folder;
    const QString path = folder.write(text("catalog.xml"), file);
    QCOMPARE(complaints(readableSchema, path), QString());
    QCOMPARE(CatalogLoader().loadCatalog(path, QString())->profile(), text("P"));
}

QTEST_GUILESS_MAIN(FormatSchemaTest)

#include "FormatSchemaTest.moc"
