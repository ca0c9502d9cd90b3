// The table of the format against the reader: both must agree on every name. The tokenizer is made from the
// table.

#include "catalogs/format/CatalogFormat.h"

#include "reading/RecordListing.h"
#include "support/TestSupport.h"

#include <QtTest>

using namespace Orvida::Tests;

namespace {

using Format = CatalogFormat;

constexpr qint64 style = 9000000000;

// The names of the fields that `choose` takes.
template <typename Choose>
QString namesOfFields(Choose choose)
{
    QStringList names;
    for (const Format::Record &record : Format::records()) {
        for (const Format::Field &field : record.fields) {
            if (choose(field))
                names.append(field.name);
        }
    }
    return names.join(QLatin1Char(' '));
}

// A text that every other kind converts differently, how RecordListing shows its value, and a text that is
// nearly of the kind.
struct Telling
{
    const char *text;
    const char *listed;
    const char *failing;
};

Telling tellingOf(Format::Kind kind)
{
    switch (kind) {
    case Format::Kind::Text:
    case Format::Kind::ScrambledText: return {"telling", "telling", ""};
    case Format::Kind::Integer: return {"007", "=7", "2147483648"};
    case Format::Kind::Integer64: return {"09000000000", "=9000000000", "9223372036854775808"};
    case Format::Kind::Boolean: return {"TRUE", "=true", ""};
    case Format::Kind::ParameterType: return {"DEC", "=3", "dec"};
    case Format::Kind::ColumnType: return {"DEC", "=3", "TXT"};
    }
    return {};
}

// A file with one record: its required fields, what a column needs to be kept, and `field` with `value`.
QByteArray fileWith(const Format::Record &record, const Format::Field *field, const char *value)
{
    QByteArray xml = QByteArray("<") + record.name.data() + '>';
    const auto add = [&xml](const Format::Field &added, const char *text) {
        xml += QByteArray("<") + added.name.data() + '>' + text + "</" + added.name.data() + '>';
    };
    for (const Format::Field &candidate : record.fields) {
        if (&candidate == field)
            add(candidate, value);
        else if (candidate.isRequired)
            add(candidate, "k");
        else if (candidate.kind == Format::Kind::ColumnType)
            add(candidate, "TXT");
    }
    return catalogXml(scrambledForm(xml + "</" + record.name.data() + '>'));
}

} // namespace

class CatalogFormatTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatIsScrambledAndRequired();
    void findsEveryName();
    void readerTakesFieldAsTheTableSays_data();
    void readerTakesFieldAsTheTableSays();
    void readerTakesEveryWord();
    void readerRefusesRecordWithoutRequiredField();
};

void CatalogFormatTest::tellsWhatIsScrambledAndRequired()
{
    QCOMPARE(namesOfFields([](const Format::Field &field) { return field.isScrambled(); }),
             text("COL_Column_ID COL_Caption LC_Class_ID LC_Caption LIST_Caption CLASS_Item BC_Item BC_Code "
                  "BC_ObsText CE_Item CE_Code CE_ObsText PARAM_Caption PARAM_Prefix PARAM_Suffix"));
    QCOMPARE(namesOfFields([](const Format::Field &field) { return field.isRequired; }),
             text("PRO_PK CPX_PK CPX_Profile_FK COL_Profile_FK COL_Column_ID LC_Profile_FK LC_Class_ID "
                  "LIST_Class_FK CLASS_PK BC_PK CE_PK PARAM_PK PX_PK"));
}

void CatalogFormatTest::findsEveryName()
{
    for (const Format::Record &record : Format::records()) {
        QCOMPARE(Format::record(record.name), &record);
        QCOMPARE(Format::record(QString(record.name)), &record);
        QVERIFY(!Format::field(record.name));
        for (const Format::Field &field : record.fields) {
            QCOMPARE(Format::field(field.name), &field);
            QCOMPARE(Format::isScrambled(QString(field.name)), field.isScrambled());
            QCOMPARE(Format::recordOf(field), &record);
            const Format::Field *key = Format::field(field.names);
            QVERIFY2(field.names.isEmpty() || key->keySpace != Format::KeySpace::None, field.name.data());
        }
    }
    for (const char *name : {"", "OVCAT", "catpro", "CATPRO ", "PRO_Pk"}) {
        QVERIFY(!Format::record(text(name)));
        QVERIFY(!Format::field(text(name)));
        QVERIFY(!Format::isScrambled(text(name)));
    }
    QCOMPARE(Format::title(Format::Kind::ColumnType), QLatin1String("column type"));
}

void CatalogFormatTest::readerTakesFieldAsTheTableSays_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name :
         namesOfFields([](const Format::Field &) { return true; }).split(QLatin1Char(' ')))
        QTest::newRow(qPrintable(name)) << name;
}

void CatalogFormatTest::readerTakesFieldAsTheTableSays()
{
    QFETCH(QString, name);
    const Format::Field &field = *Format::field(name);
    const Format::Record &record = *Format::recordOf(field);
    const Telling telling = tellingOf(field.kind);
    const QByteArray file = fileWith(record, &field, telling.text);
    const QString lines = Reading(file).lines();
    const QString plainLines = Reading(fileWith(record, nullptr, "")).lines();
    const bool isRead = field.use == Format::Use::Used || field.use == Format::Use::Stored;
    QVERIFY(!plainLines.contains(QLatin1String(telling.listed)));
    QVERIFY2(isRead ? lines.contains(QLatin1String(telling.listed)) : lines == plainLines, qPrintable(lines));
    if (!field.isRequired)
        QCOMPARE(Reading(fileWith(record, &field, telling.failing)).lines(), plainLines);

    CatalogXMLParser parser;
    const CatalogFolder folder;
    QCOMPARE(parser.readCatalogStyleFlag(folder.write(QStringLiteral("catalog.xml"), file)),
             field.use == Format::Use::StyleQuery ? style : 0);
}

void CatalogFormatTest::readerTakesEveryWord()
{
    for (const char *name : {"PARAM_DataType", "COL_DataType"}) {
        const Format::Field &field = *Format::field(QLatin1String(name));
        int type = 0;
        for (const QLatin1String word : Format::words(field.kind)) {
            const QString lines = Reading(fileWith(*Format::recordOf(field), &field, word.data())).lines();
            QVERIFY2(lines.contains(text("dataType=%1").arg(++type)), word.data());
        }
        QCOMPARE(type, 5);
    }
}

void CatalogFormatTest::readerRefusesRecordWithoutRequiredField()
{
    for (const Format::Record &record : Format::records()) {
        for (const Format::Field *field : record.requiredFields()) {
            const Reading reading(fileWith(record, field, ""));
            QVERIFY(!reading.succeeded());
            QCOMPARE(reading.failure().record, QString(record.name));
            QCOMPARE(reading.failure().missingFields, QStringList{field->name});
        }
        // In the order of the table.
        const Reading empty(catalogXml(QByteArray("<") + record.name.data() + "/>"));
        QStringList names;
        for (const Format::Field *field : record.requiredFields())
            names.append(field->name);
        QCOMPARE(empty.succeeded(), names.isEmpty());
        QCOMPARE(empty.failure().missingFields, names);
    }
}

QTEST_GUILESS_MAIN(CatalogFormatTest)

#include "CatalogFormatTest.moc"
