// Input fields of items, built from parameters, parameter extensions and columns.

#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QMap>
#include <QSet>
#include <QTextStream>
#include <QtTest>

using Orvida::Catalogs::CatalogInputField;
using Orvida::Catalogs::CatalogLoader;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Shared::ListItem;
using Orvida::Tests::CatalogFolder;
using Orvida::Tests::catalogXml;
using Orvida::Tests::field;
using Orvida::Tests::LogCapture;
using Orvida::Tests::scrambled;

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

// A record from "name=value;name=value", the names without the prefix of their kind. The later value of a
// name counts; a field with an empty value is left out.
QByteArray record(const QByteArray &kind, const QByteArray &fields)
{
    static const QMap<QByteArray, QByteArray> prefixes = {
        {"BASECODE", "BC"}, {"CHAREXT", "CE"}, {"CATPRO", "PRO"}, {"PARAMX", "PX"}};
    static const QSet<QByteArray> scrambledFields = {
        "COL_Column_ID", "COL_Caption", "LC_Class_ID",   "LIST_Caption", "CLASS_Item",
        "BC_Item",       "BC_Code",     "PARAM_Caption", "PARAM_Prefix", "PARAM_Suffix"};
    QMap<QByteArray, QByteArray> values;
    for (const QByteArray &nameAndValue : fields.split(';')) {
        const int end = nameAndValue.indexOf('=');
        values.insert(prefixes.value(kind, kind) + '_' + nameAndValue.left(end), nameAndValue.mid(end + 1));
    }
    QByteArray content;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const auto write = scrambledFields.contains(value.key()) ? scrambled : field;
        if (!value->isEmpty())
            content += write(value.key().constData(), QString::fromUtf8(*value));
    }
    return '<' + kind + ">\n" + content + "</" + kind + ">\n";
}

// A parameter with its key as caption.
QByteArray parameter(const QByteArray &key, const QByteArray &more = "")
{
    return record("PARAM", "PK=" + key + ";Caption=" + key + ';' + more);
}

// An extension with the key of its parameter, for the column C of the base code B.
QByteArray extension(const QByteArray &key, const QByteArray &more = "")
{
    return record("PARAMX", "PK=" + key + ";Param_FK=" + key + ";BaseCode_FK=B;Column_ID=C;" + more);
}

QByteArray column(const QByteArray &id, const QByteArray &profile, const QByteArray &more = "")
{
    return record("COL", "Column_ID=" + id + ";Profile_FK=" + profile + ";DataType=TXT;" + more);
}

QString flagsOf(const CatalogInputField &field)
{
    return text(field.isVisible() ? "V" : "") + text(field.isReadonly() ? "R" : "")
           + text(field.isMandatory() ? "M" : "");
}

QString toText(const CatalogInputField &field)
{
    QString line;
    QTextStream out(&line);
    out << field.caption() << '|' << field.boundColumn() << '|' << flagsOf(field) << '|'
        << field.defaultValue() << '|' << field.displayFormat() << '|' << field.inputFormat() << '|'
        << field.maximumTextLength() << '|' << field.minimumValue() << '|' << field.maximumValue() << '|'
        << field.step() << '|' << field.observationTextParamName() << '|' << field.prefix() << '|'
        << field.suffix() << '|' << field.unit() << '|' << field.precission() << '|' << field.sortOrder()
        << '|' << int(field.dataType()) << '|' << qint64(field.typeFlags()) << '|';
    for (const ListItem &entry : field.itemList())
        out << '[' << entry.value().toString() << '/' << entry.caption() << '/' << entry.itemText() << ']';
    return line;
}

const QList<CatalogInputField> &fieldsOf(const CatalogSptr &catalog, const char *item, const QString &profile)
{
    static const QList<CatalogInputField> none;
    catalog->setProfile(profile);
    const auto found = catalog->getCatalogItems().value(text(item));
    return found ? found->getFields() : none;
}

// Fields as "caption(flags)": V for visible, R for read-only, M for mandatory.
QString captionsOf(const CatalogSptr &catalog, const char *item, const QString &profile)
{
    QStringList captions;
    for (const CatalogInputField &field : fieldsOf(catalog, item, profile))
        captions += QStringLiteral("%1(%2)").arg(field.caption(), flagsOf(field));
    return captions.join(QLatin1Char(','));
}

// The fields of all items under all profiles, as "item.profile=fields".
QString allFields(const CatalogSptr &catalog)
{
    QStringList places;
    for (const char *item : {"", "A", "B", "E"}) {
        for (const char *profile : {"", "P", "Q", "Q2", "2P"}) {
            const QString captions = captionsOf(catalog, item, text(profile));
            if (!captions.isEmpty())
                places += QStringLiteral("%1.%2=%3").arg(text(item), text(profile), captions);
        }
    }
    return places.join(QLatin1Char(' '));
}

// An item with its children and their fields under the current profile.
QString treeOf(const QSharedPointer<Orvida::Catalogs::CatalogItem> &item, const QString &indent)
{
    QString lines = QStringLiteral("%1%2|%3|%4").arg(indent, item->id(), item->code(), item->caption());
    for (const CatalogInputField &field : item->getFields())
        lines += indent + text("* ") + toText(field);
    for (const auto &child : item->getChildItems())
        lines += treeOf(child, indent + text("  "));
    return lines;
}

} // namespace

class InputFieldsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void composesTheCaption_data();
    void composesTheCaption();
    void attachesFieldsToItems_data();
    void attachesFieldsToItems();
    void ordersFieldsBySortOrder();
    void buildsOneFieldForEachOfManyProfiles();
    void copiesAreIndependent();
    void loadsAWholeFile();

private:
    CatalogSptr load(const QByteArray &records)
    {
        const QString path = m_folder.write(text("catalog.xml"), catalogXml(records));
        return CatalogLoader().loadCatalog(path, text("id"));
    }

    CatalogFolder m_folder;
};

void InputFieldsTest::composesTheCaption_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("caption");

    const auto row = [](const char *name, const char *ofParameter, const char *ofExtension,
                        const char *caption) {
        QTest::newRow(name) << parameter("Size", ofParameter) + extension("Size", ofExtension) << caption;
    };
    const char *const range = "RangeFrom=1;RangeTo=5";
    const char *const clock = "Placeholder=@CLK;Prefix=from;Suffix=to";
    row("clock position", clock, "", "Size (from x to)");
    row("clock position in mixed case", "Placeholder=@clK;Prefix=1;Suffix=2", "", "Size (1 x 2)");
    row("clock position before truth value", "DataType=BOL;Placeholder=@CLK", range, "Size ( x )");
    row("clock position before range", clock, range, "Size (from x to)");
    row("clock position with markers", "Placeholder=@CLK;Caption=%2 %3 %L1;Prefix=%1 100 %2;Suffix=%3%", "",
        "%2 %3 %L1 (%1 100 %2 x %3%)");
    row("no clock position: blank", "Placeholder= @CLK;Prefix=1;Suffix=2", range, "Size (1 - 5)");
    row("truth value", "DataType=BOL", range, "Size");
    row("no truth value: letter case", "DataType=bol", range, "Size (1 - 5)");
    row("integer", "DataType=INT", range, "Size (1 - 5)");
    row("equal limits", "", "RangeFrom=1.5;RangeTo=1.5", "Size");
    row("limits equal as numbers only", "", "RangeFrom=1.0;RangeTo=1", "Size (1.0 - 1)");
    row("limits equal once formatted", "", "RangeFrom=1;RangeTo=1.2;InputFmt=0", "Size (1 - 1)");
    row("no lower limit", "", "RangeTo=10", "Size");
    row("no upper limit", "", "RangeFrom=10", "Size");
    row("blank limit", "", "RangeFrom= ;RangeTo=1", "Size (  - 1)");
    row("caption and limits with markers", "Caption=100 % %1%2 %3", "RangeFrom=%2;RangeTo=%3 %1",
        "100 % %1%2 %3 (%2 - %3 %1)");
    row("input format", "", "RangeFrom=0.26;RangeTo=5;InputFmt=#0.#;DisplayFmt=0.00", "Size (0.3 - 5.0)");
    row("no caption", "Caption=", range, " (1 - 5)");
    row("missing parameter", clock, "Param_FK=none;RangeFrom=1;RangeTo=5", " (1 - 5)");
}

void InputFieldsTest::composesTheCaption()
{
    QFETCH(QByteArray, records);
    const CatalogSptr catalog = load(records + record("BASECODE", "PK=B") + column("C", "P", "Caption=no"));
    QCOMPARE(fieldsOf(catalog, "B", text("P")).size(), 1);
    QTEST(fieldsOf(catalog, "B", text("P")).first().caption(), "caption");
}

void InputFieldsTest::attachesFieldsToItems_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("missingItem");

    const auto row = [](const char *name, const QByteArray &records, const char *fields,
                        const char *missingItem = "") {
        QTest::newRow(name) << records << fields << missingItem;
    };
    const QByteArray x = parameter("X", "SortOrder=1");
    const QByteArray y = parameter("Y", "SortOrder=2");
    const QByteArray codes = record("BASECODE", "PK=B") + record("CHAREXT", "PK=E;BaseCode_FK=B");
    const QByteArray common = codes + x + y + column("C", "P");
    row("base code", common + extension("X", "CharExt_FK="), "B.P=X()");
    row("character extension", common + extension("X", "BaseCode_FK=;CharExt_FK=E"), "E.P=X()");
    row("base code before character extension", common + extension("X", "CharExt_FK=E"), "B.P=X()");
    row("neither: the root", common + extension("X", "BaseCode_FK="), ".P=X()");
    row("unknown base code", common + extension("X", "BaseCode_FK=B9;CharExt_FK=E"), "", "B9");
    row("unknown character extension", common + extension("X", "BaseCode_FK=;CharExt_FK=E9"), "", "E9");
    row("letter case of the item", common + extension("X", "BaseCode_FK=b"), "", "b");
    row("unknown item, no column", common + extension("X", "BaseCode_FK=%1 %2;Column_ID="), "", "%1 %2");
    row("unknown item, two profiles", common + column("C", "Q") + extension("X", "BaseCode_FK=9"), "", "9");
    row("later item of the same key", common + extension("X") + record("CLASS", "PK=B"), "B.P=X()");

    row("no column id", common + extension("X", "Column_ID="), "");
    row("unknown column", common + extension("X", "Column_ID=none"), "");
    row("letter case of the column", common + extension("X", "Column_ID=c"), "");
    row("column of unknown type", codes + x + column("C", "P", "DataType=Text") + extension("X"), "");
    row("unknown list", common + extension("X", "ListClass_ID=none"), "B.P=X()");
    row("two extensions of one column", common + extension("X") + extension("Y"), "B.P=X(),Y()");

    const QByteArray onC = codes + x + y + extension("X", "Mandatory=true");
    const QByteArray visible = column("C", "P", "Visible=true");
    const QByteArray readOnly = column("C", "P", "ReadOnly=TRUE;Mandatory=true");
    const QByteArray inAlikeKeys = column("C", "2P", "Visible=true") + column("C2", "P");
    row("one field per profile", onC + visible + column("C", "2P") + column("C", "Q", "ReadOnly=true"),
        "B.P=X(VM) B.Q=X(RM) B.2P=X(M)");
    row("profiles of the file do not count", onC + record("CATPRO", "PK=Q") + readOnly, "B.P=X(RM)");
    row("first of two columns", onC + visible + column("C", "Q") + readOnly, "B.P=X(VM) B.Q=X(M)");
    row("first of two columns, two extensions", onC + readOnly + visible + extension("Y"), "B.P=X(RM),Y(R)");
    row("first column of known type", onC + column("C", "P", "DataType=?") + visible, "B.P=X(VM)");
    row("columns and profiles that read alike", onC + inAlikeKeys + extension("Y", "Column_ID=C2"),
        "B.P=Y() B.2P=X(VM)");
}

void InputFieldsTest::attachesFieldsToItems()
{
    QFETCH(QByteArray, records);
    QFETCH(QString, missingItem);
    const LogCapture log;
    const CatalogSptr catalog = load(records);
    QVERIFY(catalog->IsValid());
    QTEST(allFields(catalog), "fields");
    const QString message = text("CatalogLoader|critical|Catalog item ") + missingItem + text(" not found!");
    QCOMPARE(log.messages(), missingItem.isEmpty() ? QStringList() : QStringList(message));
}

void InputFieldsTest::ordersFieldsBySortOrder()
{
    QByteArray records = record("BASECODE", "PK=B") + column("C", "P") + column("D", "P");
    for (const char *sortOrder : {"30", "-1", "2", "0", "2147483647", "-2147483648", "10"})
        records += parameter(sortOrder, QByteArray("SortOrder=") + sortOrder) + extension(sortOrder);
    records += parameter("1", "SortOrder=1") + extension("1", "Column_ID=D");
    QCOMPARE(captionsOf(load(records), "B", text("P")),
             text("-2147483648(),-1(),0(),1(),2(),10(),30(),2147483647()"));
}

void InputFieldsTest::buildsOneFieldForEachOfManyProfiles()
{
    constexpr int profiles = 3000;
    const char *const flags[] = {"Visible=true", "ReadOnly=true"};
    QByteArray records = record("BASECODE", "PK=B") + parameter("X") + extension("X");
    QByteArray repeated; // with the other flag, which does not count
    for (int number = 0; number < profiles; ++number) {
        records += column("C", QByteArray::number(number), flags[number % 2]);
        repeated += column("C", QByteArray::number(number), flags[1 - number % 2]);
    }
    const CatalogSptr catalog = load(records + repeated);
    for (int number = 0; number < profiles; ++number)
        QCOMPARE(captionsOf(catalog, "B", QString::number(number)), text(number % 2 ? "X(R)" : "X(V)"));
}

void InputFieldsTest::copiesAreIndependent()
{
    const CatalogSptr catalog =
        load(record("BASECODE", "PK=B") + parameter("X") + column("C", "P") + extension("X"));
    const QString before = toText(fieldsOf(catalog, "B", text("P")).first());
    CatalogInputField copy = fieldsOf(catalog, "B", text("P")).first();
    const CatalogInputField second(copy);
    copy.setCaption(text("changed"));
    copy.setItemList({ListItem(1, text("one"), QString())});
    QCOMPARE(toText(second), before);
    QCOMPARE(toText(fieldsOf(catalog, "B", text("P")).first()), before);
}

// Every property has a value of its own; numbers from 91 and texts from c1 belong to others and never show.
void InputFieldsTest::loadsAWholeFile()
{
    const QByteArray foreign =
        "Export_ID=c1;Caption=c2;Length=91;RangeFrom=92;RangeTo=93;Steps=94;Precision=95;Default=c3;Unit=c4;"
        "InputFmt=0.00;DisplayFmt=c5;ListClass_REF=M;ToolTip=c6;SortOrder=96;Transport=true;Virtual=true;"
        "Mandatory=true";
    const CatalogSptr catalog = load(
        extension("X", "Length=11;RangeFrom=2;RangeTo=30;Steps=0,5;Precision=4;Default=def;InputFmt=0.0;"
                       "DisplayFmt=0.000;ClockType=97;ListClass_ID=L;Mandatory=true")
        + extension("Y", "BaseCode_FK=;CharExt_FK=E;Column_ID=D;ListClass_ID=LC_ID_CD")
        + extension("Z", "BaseCode_FK=A;Param_FK=none") + record("CATPRO", "PK=Q;SortOrder=2")
        + record("CATPRO", "PK=P;SortOrder=1") + record("CPX", "PK=1;Profile_FK=Q;IsOrvida=true")
        + record("LC", "PK=1;Profile_FK=P;Class_ID=L;TypeFlags=33;Caption=c7")
        + record("LC", "PK=2;Profile_FK=Q;Class_ID=LC_ID_CD")
        + record("LIST", "Class_FK=1;Item=item;Caption=first;SortOrder=2")
        + record("LIST", "Class_FK=1;Item=other;Caption=second;Internal=in;SortOrder=1;Param_ID=X")
        + record("LIST", "Class_FK=2;Item=beginning;Caption=third;Internal=A01") + column("C", "P", foreign)
        + column("C", "Q", "Visible=true") + column("D", "Q", foreign + ";ReadOnly=true")
        + record("CHAREXT", "PK=E;BaseCode_FK=B") + record("CLASS", "PK=A;Item=Structure")
        + record("BASECODE", "PK=B;Class_FK=A;Item=Crack;Code=BAB")
        + parameter("X", "ID=c8;DataType=DEC;Placeholder=@Q1;Caption=Width;Prefix=pre;Suffix=suf;Unit=mm;"
                         "SortOrder=-7;TypeFlags=1099511627781")
        + parameter("Y", "DataType=TXT;Placeholder=@clk;Caption=Clock;Prefix=at;Suffix=till"));
    QCOMPARE(catalog->profile(), text("Q"));
    QString dump;
    for (const char *profile : {"P", "Q"}) {
        catalog->setProfile(text(profile));
        dump += text(profile) + text(" A01 is ") + catalog->getContinousDefectCodes().value(text("A01"))
                + treeOf(catalog->getItemById(QString()), text("\n")) + text("\n");
    }
    QCOMPARE(
        dump,
        text("P A01 is \n"
             "||\n"
             "  A||Structure\n"
             "  * |C|||||0||||||||0|0|0|0|\n"
             "    B|BAB|Crack\n"
             "    * Width (2.0 - 30.0)|C|M|def|0.000|0.0|11|2|30|0,5|@Q1|pre|suf|mm|4|-7|3|1099511627781|"
             "[in/second/other][first/first/item]\n"
             "      E||\n"
             "Q A01 is beginning\n"
             "||\n"
             "  A||Structure\n"
             "  * |C|V||||0||||||||0|0|0|0|\n"
             "    B|BAB|Crack\n"
             "    * Width (2.0 - 30.0)|C|VM|def|0.000|0.0|11|2|30|0,5|@Q1|pre|suf|mm|4|-7|3|1099511627781|\n"
             "      E||\n"
             "      * Clock (at x till)|D|R||||0||||@clk|at|till||0|0|1|0|[A01/third/beginning]\n"));
}

QTEST_GUILESS_MAIN(InputFieldsTest)

#include "InputFieldsTest.moc"
