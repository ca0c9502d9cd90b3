// Input fields of items, built from parameters, parameter extensions and columns.

#include "support/TestSupport.h"

#include <QtTest>

using Orvida::Catalogs::CatalogInputField;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Tests::loaded;
using Orvida::Tests::LogCapture;
using Orvida::Tests::recordsFrom;

namespace {

// A parameter with its key as caption.
QByteArray parameter(const QByteArray &key, const QByteArray &more = "")
{
    return recordsFrom("PARAM PK=" + key + ";Caption=" + key + ';' + more);
}

// An extension with the key of its parameter, for the column C of the base code B.
QByteArray extension(const QByteArray &key, const QByteArray &more = "")
{
    return recordsFrom("PARAMX PK=" + key + ";Param_FK=" + key + ";BaseCode_FK=B;Column_ID=C;" + more);
}

QByteArray column(const QByteArray &profile, const QByteArray &more = "")
{
    return recordsFrom("COL Column_ID=C;DataType=TXT;Profile_FK=" + profile + ';' + more);
}

// The caption, and flags if any: "X/VRM" is visible, read-only and mandatory.
QString shortText(const CatalogInputField &field)
{
    QString text = field.caption() + QLatin1Char('/');
    text += field.isVisible() ? QStringLiteral("V") : QString();
    text += field.isReadonly() ? QStringLiteral("R") : QString();
    text += field.isMandatory() ? QStringLiteral("M") : QString();
    return text.endsWith(QLatin1Char('/')) ? text.chopped(1) : text;
}

QString fullText(const CatalogInputField &field)
{
    QStringList texts = {shortText(field),      field.boundColumn(), field.defaultValue(),
                         field.displayFormat(), field.inputFormat(), field.minimumValue(),
                         field.maximumValue(),  field.step(),        field.observationTextParamName(),
                         field.prefix(),        field.suffix(),      field.unit()};
    for (qint64 number : {qint64(field.maximumTextLength()), qint64(field.precission()),
                          qint64(field.sortOrder()), qint64(field.dataType()), qint64(field.typeFlags())})
        texts += QString::number(number);
    for (const auto &entry : field.itemList())
        texts += QStringLiteral("%1/%2/%3").arg(entry.value().toString(), entry.caption(), entry.itemText());
    return texts.join(QLatin1Char('|'));
}

const QStringList bothProfiles = {QStringLiteral("P"), QStringLiteral("Q")};

// The fields of all items under some profiles, as "item.profile=field,field".
QString fieldsOf(const CatalogSptr &catalog, QString (*toText)(const CatalogInputField &),
                 const QStringList &profiles)
{
    QStringList ids = catalog->getCatalogItems().keys();
    ids.sort();
    QStringList texts;
    for (const QString &id : qAsConst(ids)) {
        for (const QString &profile : profiles) {
            catalog->setProfile(profile);
            QStringList fields;
            for (const CatalogInputField &field : catalog->getItemById(id)->getFields())
                fields += toText(field);
            if (!fields.isEmpty())
                texts += QStringLiteral("%1.%2=%3").arg(id, profile, fields.join(QLatin1Char(',')));
        }
    }
    return texts.join(QLatin1Char('\n'));
}

} // namespace

class InputFieldsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buildsFields_data();
    void buildsFields();
    void buildsOneFieldForEachOfManyProfiles();
    void fillsEveryProperty();
    void placesFieldsOfTheHostBehindItsOwn();
};

void InputFieldsTest::buildsFields_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("fieldsAndMessages");

    const auto row = [](const char *name, const QByteArray &records, const QByteArray &expected) {
        QTest::newRow(name) << records + recordsFrom("BASECODE PK=B\nCHAREXT PK=E;BaseCode_FK=B")
                            << QString::fromUtf8(expected);
    };
    const auto captionRow = [&row](const char *name, const QByteArray &ofParameter,
                                   const QByteArray &ofExtension, const QByteArray &caption) {
        row(name, parameter("Size", ofParameter) + extension("Size", ofExtension) + column("P", "Caption=no"),
            "B.P=" + caption);
    };
    const char *const range = "RangeFrom=1;RangeTo=5";
    const char *const clock = "DataType=BOL;Placeholder=@clK;Prefix=from;Suffix=to";
    captionRow("clock position before truth value", clock, range, "Size (from x to)");
    captionRow("clock position with markers, before range",
               "Placeholder=@CLK;Caption=%2 %3;Prefix=%1 %L1;Suffix=%3%", range, "%2 %3 (%1 %L1 x %3%)");
    captionRow("no clock position: blank", "Placeholder= @CLK", range, "Size (1 - 5)");
    captionRow("truth value", "DataType=BOL", range, "Size");
    captionRow("equal limits", "", "RangeFrom=1.5;RangeTo=1.5", "Size");
    captionRow("limits equal only as numbers", "", "RangeFrom=1;RangeTo=1.0;InputFmt=0", "Size (1 - 1)");
    captionRow("no lower limit", "", "RangeTo=10", "Size");
    captionRow("no upper limit", "", "RangeFrom=10", "Size");
    captionRow("range with markers", "Caption=100 % %1%2 %3", "RangeFrom=%2;RangeTo=%3 %1",
               "100 % %1%2 %3 (%2 - %3 %1)");
    captionRow("input format", "", "RangeFrom=0.26;RangeTo=5;InputFmt=#0.#;DisplayFmt=0", "Size (0.3 - 5.0)");
    captionRow("no caption", "Caption=", range, " (1 - 5)");
    captionRow("missing parameter", clock, "Param_FK=none;RangeFrom=1;RangeTo=5", " (1 - 5)");

    const QByteArray x = parameter("X") + column("P");
    row("base code before character extension", x + extension("X", "CharExt_FK=E"), "B.P=X");
    row("character extension", x + extension("X", "BaseCode_FK=;CharExt_FK=E"), "E.P=X");
    row("neither: the root", x + extension("X", "BaseCode_FK="), ".P=X");
    row("unknown base code, two profiles", x + column("Q") + extension("X", "BaseCode_FK=b;CharExt_FK=E"),
        "CatalogLoader|critical|Catalog item b not found!");
    row("unknown item, no column", x + extension("X", "BaseCode_FK=%1 %2;Column_ID="),
        "CatalogLoader|critical|Catalog item %1 %2 not found!");
    row("letter case of the column", x + extension("X", "Column_ID=c"), "");
    row("unknown list", x + extension("X", "ListClass_ID=none"), "B.P=X");

    const QByteArray onC = parameter("X") + extension("X", "Mandatory=true");
    const QByteArray visible = column("P", "Visible=true");
    const QByteArray readOnly = column("P", "ReadOnly=TRUE;Mandatory=true");
    row("one field per profile", onC + visible + column("Q", "ReadOnly=true"), "B.P=X/VM\nB.Q=X/RM");
    row("profiles of the file do not count", onC + recordsFrom("CATPRO PK=Q") + readOnly, "B.P=X/RM");
    row("first of two columns", onC + visible + column("Q") + readOnly, "B.P=X/VM\nB.Q=X/M");
    row("first of two columns, two extensions",
        onC + readOnly + visible + parameter("Y", "SortOrder=1") + extension("Y"), "B.P=X/RM,Y/R");
    row("first column of known type", onC + column("P", "DataType=?") + visible, "B.P=X/VM");
}

void InputFieldsTest::buildsFields()
{
    QFETCH(QByteArray, records);
    const LogCapture log;
    const QString fields = fieldsOf(loaded(records), shortText, bothProfiles);
    QTEST(fields + log.messages().join(QLatin1Char('\n')), "fieldsAndMessages");
}

void InputFieldsTest::buildsOneFieldForEachOfManyProfiles()
{
    QByteArray records = recordsFrom("BASECODE PK=B") + parameter("X") + extension("X");
    QByteArray repeated; // with a flag that does not count
    QStringList profiles, expected;
    for (int number = 0; number < 3000; ++number) {
        const QByteArray profile = QByteArray::number(number);
        records += column(profile, number % 2 ? "ReadOnly=true" : "");
        repeated += column(profile, "Visible=true");
        profiles += QString::fromUtf8(profile);
        expected += QStringLiteral("B.%1=X%2").arg(number).arg(QLatin1String(number % 2 ? "/R" : ""));
    }
    QCOMPARE(fieldsOf(loaded(records + repeated), shortText, profiles), expected.join(QLatin1Char('\n')));
}

// Every property has a value of its own; numbers from 91 and texts from c1 belong to others and never show.
void InputFieldsTest::fillsEveryProperty()
{
    const CatalogSptr catalog = loaded(recordsFrom(R"(
        PARAMX PK=X;Param_FK=X;BaseCode_FK=B;Column_ID=C;Length=11;RangeFrom=2;RangeTo=30;Steps=0,5;Precision=4;
            Default=def;InputFmt=0.0;DisplayFmt=0.000;ClockType=97;ListClass_ID=L;Mandatory=true
        PARAMX PK=Y;Param_FK=Y;CharExt_FK=E;Column_ID=D;ListClass_ID=LC_ID_CD
        LC PK=1;Profile_FK=P;Class_ID=L;TypeFlags=33;Caption=c7
        LC PK=2;Profile_FK=Q;Class_ID=LC_ID_CD
        LIST Class_FK=1;Item=item;Caption=first;SortOrder=2
        LIST Class_FK=1;Item=other;Caption=second;Internal=in;SortOrder=1;Param_ID=X
        LIST Class_FK=2;Item=beginning;Caption=third;Internal=A01
        COL Profile_FK=P;Column_ID=C;DataType=TXT;Export_ID=c1;Caption=c2;Length=91;RangeFrom=92;RangeTo=93;
            Steps=94;Precision=95;Default=c3;Unit=c4;InputFmt=0.00;DisplayFmt=c5;ListClass_REF=M;ToolTip=c6;
            SortOrder=96;Transport=true;Virtual=true;Mandatory=true
        COL Profile_FK=Q;Column_ID=C;DataType=INT;Visible=true
        COL Profile_FK=Q;Column_ID=D;DataType=TXT;ReadOnly=true;Mandatory=true
        CHAREXT PK=E;BaseCode_FK=B
        BASECODE PK=B
        PARAM PK=X;ID=c8;DataType=DEC;Placeholder=@Q1;Caption=Width;Prefix=pre;Suffix=suf;Unit=mm;SortOrder=-7;
            TypeFlags=1099511627781
        PARAM PK=Y;DataType=TXT;Placeholder=@clk;Caption=Clock;Prefix=at;Suffix=till)"));
    QCOMPARE(fieldsOf(catalog, fullText, bothProfiles),
             QStringLiteral(
                 "B.P=Width (2.0 - 30.0)/M|C|def|0.000|0.0|2|30|0,5|@Q1|pre|suf|mm|11|4|-7|3|1099511627781"
                 "|in/second/other|first/first/item\n"
                 "B.Q=Width (2.0 - 30.0)/VM|C|def|0.000|0.0|2|30|0,5|@Q1|pre|suf|mm|11|4|-7|3|1099511627781\n"
                 "E.Q=Clock (at x till)/R|D|||||||@clk|at|till||0|0|0|1|0|A01/third/beginning"));
}

// Whether the profile's fields were asked for before or not.
void InputFieldsTest::placesFieldsOfTheHostBehindItsOwn()
{
    const CatalogSptr catalog =
        loaded(recordsFrom("BASECODE PK=B") + parameter("X") + extension("X") + column("P") + column("Q"));
    const auto &item = catalog->getItemById(QStringLiteral("B"));
    CatalogInputField field;
    field.setCaption(QStringLiteral("host"));
    item->addField(QStringLiteral("P"), field);
    QCOMPARE(fieldsOf(catalog, shortText, bothProfiles), QStringLiteral("B.P=X,host\nB.Q=X"));
    item->addField(QStringLiteral("Q"), field);
    item->addField(QStringLiteral("R"), field);
    item->getFields().first().setCaption(QStringLiteral("changed"));
    QCOMPARE(fieldsOf(catalog, shortText, bothProfiles + QStringList(QStringLiteral("R"))),
             QStringLiteral("B.P=X,host\nB.Q=changed,host\nB.R=host"));
}

QTEST_GUILESS_MAIN(InputFieldsTest)

#include "InputFieldsTest.moc"
