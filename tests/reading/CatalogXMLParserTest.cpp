// Reading of catalog files: records and items, their keys, pieces of text and structure.

#include "catalogs/reading/CatalogXMLParser.h"

#include "reading/RecordListing.h"
#include "support/TestSupport.h"

#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <limits>

using namespace Orvida::Tests;

class CatalogXMLParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryField_data();
    void readsEveryField();
    void keepsFlagsApart_data();
    void keepsFlagsApart();
    void leavesFieldsThatAreNotGivenAtTheirDefaults_data() { addRequiredFields(); }
    void leavesFieldsThatAreNotGivenAtTheirDefaults();
    void refusesRecordWithoutKey_data() { addRequiredFields(); }
    void refusesRecordWithoutKey();
    void acceptsBlankKey_data() { addRequiredFields(); }
    void acceptsBlankKey();
    void readsRecords_data();
    void readsRecords();
    void readsNumbers_data();
    void readsNumbers();
    void readsPiecesOfText_data();
    void readsPiecesOfText();
    void readsScrambledText_data();
    void readsScrambledText();
    void logsOnlyTextsThatAreNoBooleans();
    void readsStructure_data();
    void readsStructure();
    void readsEncodings_data();
    void readsEncodings();

private:
    static void addRequiredFields();
};

void CatalogXMLParserTest::readsEveryField_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("lines");

    const auto row = [](const char *name, const char *description, const char *lines) {
        QTest::newRow(name) << description << lines;
    };

    row("profile", "CATPRO PRO_PK=a PRO_Format=b PRO_ExportType=c PRO_Description=d PRO_SortOrder=-5",
        "profile pk=a format=b exportType=c description=d sortOrder=-5");
    row("profile extension", "CPX CPX_PK=a CPX_Profile_FK=b CPX_IsStart=true CPX_IsOrvida=True",
        "extension pk=a profileFk=b isStart=true isOrvida=true");
    row("column",
        "COL COL_Profile_FK=a COL_Column_ID~b COL_Export_ID=c COL_Caption~d COL_Transport=true "
        "COL_Virtual=true COL_Visible=true COL_ReadOnly=true COL_Mandatory=true COL_DataType=DEC "
        "COL_Length=11 COL_RangeFrom=l COL_RangeTo=m COL_Steps=n COL_Precision=15 COL_Default=o COL_Unit=q "
        "COL_InputFmt=r COL_DisplayFmt=s COL_ListClass_REF=t COL_ToolTip=u COL_SortOrder=22",
        "column[b] profileFk=a listClassRef=t columnId=b exportId=c caption=d defaultValue=o inputFormat=r "
        "displayFormat=s unit=q toolTip=u rangeFrom=l rangeTo=m steps=n length=11 precision=15 sortOrder=22 "
        "transport=true isVirtual=true visible=true readOnly=true mandatory=true dataType=3");
    row("list class", "LC LC_PK=a LC_Profile_FK=b LC_Class_ID~c LC_Caption~d LC_TypeFlags=5",
        "class pk=a classId=c profileFk=b caption=d typeFlags=5");
    row("list item",
        "LIST LIST_PK=a LIST_Class_FK=b LIST_Item=c LIST_Caption~d LIST_Internal=e LIST_SortOrder=6 "
        "LIST_Param_ID=g",
        "entry[b] item=c internal=e paramId=g classFk=b sortOrder=6 caption=d");
    row("parameter",
        "PARAM PARAM_PK=a PARAM_SortOrder=2 PARAM_ID=c PARAM_DataType=BOL PARAM_Placeholder=e "
        "PARAM_Caption~f PARAM_Prefix~g PARAM_Suffix~h PARAM_Unit=i PARAM_TypeFlags=4294967306",
        "parameter[a] pk=a id=c placeholder=e caption=f prefix=g suffix=h unit=i sortOrder=2 dataType=4 "
        "typeFlags=4294967306");
    row("parameter extension",
        "PARAMX PX_PK=a PX_BaseCode_FK=b PX_CharExt_FK=c PX_Param_FK=d PX_Mandatory=true PX_Length=6 "
        "PX_RangeFrom=g PX_RangeTo=h PX_Steps=i PX_Precision=10 PX_Default=k PX_InputFmt=l PX_DisplayFmt=m "
        "PX_ClockType=14 PX_Column_ID=o PX_ListClass_ID=q",
        "field[a] baseCodeFk=b charExtFk=c paramFk=d defaultValue=k inputFormat=l displayFormat=m columnId=o "
        "listClassId=q rangeFrom=g rangeTo=h steps=i length=6 precision=10 clockType=14 mandatory=true");
    row("code class",
        "CLASS CLASS_PK=a CLASS_SortOrder=2 CLASS_Item~c CLASS_Remarks=d CLASS_ChildCaption=e "
        "CLASS_IsVirtual=true",
        "item[a] id=a caption=c remarks=d sortOrder=2 isVirtual=true");
    row("base code",
        "BASECODE BC_PK=a BC_SortOrder=2 BC_Class_FK=c BC_Item~d BC_Remarks=e BC_Code~f BC_AltCode=g "
        "BC_Follower=h BC_ObsText~i BC_ChildCaption=j BC_CloseCode=k BC_AutoPicture=true BC_TypeFlags=13 "
        "BC_Construction=14 BC_IsVirtual=true",
        "item[a] id=a parentId=c caption=d code=f remarks=e observationText=i closeCode=k typeFlags=13 "
        "sortOrder=2 constructionType=14 autoPicture=true isVirtual=true");
    row("character extension",
        "CHAREXT CE_PK=a CE_SortOrder=2 CE_BaseCode_FK=c CE_CharExt_REF=d CE_Item~e CE_Remarks=f CE_Code~g "
        "CE_AltCode=h CE_Follower=i CE_ObsText~j CE_ChildCaption=k CE_CloseCode=l CE_AutoPicture=true "
        "CE_TypeFlags=-14 CE_Construction=15",
        "item[a] id=a parentId=d caption=e code=g followers=i remarks=f observationText=j closeCode=l "
        "typeFlags=-14 sortOrder=2 constructionType=15 autoPicture=true");
}

void CatalogXMLParserTest::readsEveryField()
{
    QFETCH(QString, description);
    QFETCH(QString, lines);

    QStringList words = description.split(QLatin1Char(' '));
    const QString element = words.takeFirst();
    const Reading inOrder(catalogXml(record(element, words)));
    QVERIFY(inOrder.succeeded());
    QCOMPARE(inOrder.lines(), lines);

    std::reverse(words.begin(), words.end());
    const Reading reversed(catalogXml(record(element, words)));
    QVERIFY(reversed.succeeded());
    QCOMPARE(reversed.lines(), lines);
}

void CatalogXMLParserTest::keepsFlagsApart_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("flag");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, const char *description, const char *flag, const char *shown) {
        QTest::newRow(name) << description << flag << shown;
    };

    const char column[] = "COL COL_Profile_FK=p COL_Column_ID~c COL_DataType=TXT";
    row("start profile", "CPX CPX_PK=a CPX_Profile_FK=b", "CPX_IsStart", "isStart");
    row("own profile", "CPX CPX_PK=a CPX_Profile_FK=b", "CPX_IsOrvida", "isOrvida");
    row("column transport", column, "COL_Transport", "transport");
    row("column virtual", column, "COL_Virtual", "isVirtual");
    row("column visible", column, "COL_Visible", "visible");
    row("column read-only", column, "COL_ReadOnly", "readOnly");
    row("column mandatory", column, "COL_Mandatory", "mandatory");
    row("field mandatory", "PARAMX PX_PK=a", "PX_Mandatory", "mandatory");
    row("class virtual", "CLASS CLASS_PK=a", "CLASS_IsVirtual", "isVirtual");
    row("base code picture", "BASECODE BC_PK=a", "BC_AutoPicture", "autoPicture");
    row("base code virtual", "BASECODE BC_PK=a", "BC_IsVirtual", "isVirtual");
    row("extension picture", "CHAREXT CE_PK=a", "CE_AutoPicture", "autoPicture");
}

void CatalogXMLParserTest::keepsFlagsApart()
{
    QFETCH(QString, description);
    QFETCH(QString, flag);
    QFETCH(QString, shown);

    QStringList words = description.split(QLatin1Char(' '));
    const QString element = words.takeFirst();
    const Reading set(catalogXml(record(element, words + QStringList(flag + QStringLiteral("=tRUE")))));
    const QString flagsSet = set.lines().section(QStringLiteral("=true"), 0, 0);
    QVERIFY2(flagsSet.endsWith(QLatin1Char(' ') + shown), qPrintable(set.lines()));
    QCOMPARE(set.lines().count(QStringLiteral("=true")), 1);

    const LogCapture log;
    const Reading wrong(catalogXml(record(element, words + QStringList(flag + QStringLiteral("=yes")))));
    QVERIFY(wrong.succeeded());
    QCOMPARE(wrong.lines().count(QStringLiteral("=true")), 0);
    QCOMPARE(log.messages(),
             QStringList(QStringLiteral("DataConverter|critical|stringToBool conversion error! yes")));
}

// The fields without which a record is refused, and what such a record is with nothing but them.
void CatalogXMLParserTest::addRequiredFields()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("line");

    const auto row = [](const char *name, const char *element, const char *keys, const char *other,
                        const char *line) { QTest::newRow(name) << element << keys << other << line; };

    row("profile", "CATPRO", "PRO_PK=a", "", "profile pk=a");
    row("profile extension", "CPX", "CPX_PK=a CPX_Profile_FK=b", "", "extension pk=a profileFk=b");
    row("column", "COL", "COL_Profile_FK=a COL_Column_ID~b", "COL_DataType=TXT",
        "column[b] profileFk=a columnId=b dataType=1");
    row("column of no type", "COL", "COL_Profile_FK=a COL_Column_ID~b", "COL_DataType=", "");
    row("list class", "LC", "LC_Profile_FK=a LC_Class_ID~b", "", "class classId=b profileFk=a");
    row("list item", "LIST", "LIST_Class_FK=a", "", "entry[a] classFk=a");
    row("parameter", "PARAM", "PARAM_PK=a", "", "parameter[a] pk=a");
    row("parameter extension", "PARAMX", "PX_PK=a", "", "field[a]");
    row("code class", "CLASS", "CLASS_PK=a", "", "item[a] id=a");
    row("base code", "BASECODE", "BC_PK=a", "", "item[a] id=a");
    row("character extension", "CHAREXT", "CE_PK=a", "", "item[a] id=a");
}

void CatalogXMLParserTest::leavesFieldsThatAreNotGivenAtTheirDefaults()
{
    QFETCH(QString, element);
    QFETCH(QString, keys);
    QFETCH(QString, other);
    QFETCH(QString, line);

    const LogCapture log;
    const Reading reading(
        catalogXml(record(element, (keys + QLatin1Char(' ') + other).simplified().split(QLatin1Char(' ')))));
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(), line);
    QCOMPARE(reading.listing().textsNotNull, QStringList());
    QCOMPARE(log.messages(), QStringList());
}

void CatalogXMLParserTest::refusesRecordWithoutKey()
{
    QFETCH(QString, element);
    QFETCH(QString, keys);
    QFETCH(QString, other);

    const auto refuses = [&element](const QByteArray &fields, const QStringList &missing) {
        const Reading reading(catalogXml(record(element, fields) + record("CATPRO PRO_PK=behind")));
        QVERIFY(!reading.succeeded());
        QCOMPARE(reading.lines(), QString());
        const CatalogReadFailure &failure = reading.parser().failure();
        QCOMPARE(int(failure.reason), int(CatalogReadFailure::RecordRefused));
        QCOMPARE(failure.record, element);
        QCOMPARE(failure.missingFields, missing);
        QCOMPARE(failure.detail, QString());
    };

    const QStringList words = keys.split(QLatin1Char(' '));
    const QByteArray otherField = other.isEmpty() ? QByteArray() : fieldOf(other);
    QStringList names;
    for (const QString &word : words) {
        names += word.section(QRegularExpression(QStringLiteral("[=~]")), 0, 0);
        const QByteArray name = names.last().toLatin1();
        QByteArray rest = otherField;
        for (const QString &kept : words)
            rest += kept == word ? QByteArray() : fieldOf(kept);
        refuses(rest, {names.last()});
        refuses(rest + "<" + name + "/>\n ", {names.last()});
        if (word.contains(QLatin1Char('~')))
            refuses(rest + "<" + name + ">00</" + name + ">", {names.last()}); // stands for no text
    }
    refuses(otherField, names);
}

void CatalogXMLParserTest::acceptsBlankKey()
{
    QFETCH(QString, element);
    QFETCH(QString, keys);
    QFETCH(QString, other);
    QFETCH(QString, line);

    QByteArray fields = other.isEmpty() ? QByteArray() : fieldOf(other);
    for (const QString &word : keys.split(QLatin1Char(' ')))
        fields += fieldOf(word.chopped(1) + QLatin1Char(' '));
    const Reading reading(catalogXml(record(element, fields)));
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(),
             line.replace(QRegularExpression(QStringLiteral("\\[.\\]")), QStringLiteral("[ ]"))
                 .replace(QRegularExpression(QStringLiteral("=[ab]")), QStringLiteral("= ")));
}

void CatalogXMLParserTest::readsRecords_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("lines");

    const auto row = [](const char *name, const QByteArray &records, const char *lines) {
        QTest::newRow(name) << records << lines;
    };

    row("profiles of one key, in file order",
        record("CATPRO PRO_PK=b PRO_Format=1st") + record("CATPRO PRO_PK=a")
            + record("CATPRO PRO_PK=b PRO_SortOrder=-1"),
        "profile pk=b format=1st\nprofile pk=a\nprofile pk=b sortOrder=-1");
    row("profile extensions of one key, in file order",
        record("CPX CPX_PK=b CPX_Profile_FK=y") + record("CPX CPX_PK=a CPX_Profile_FK=x")
            + record("CPX CPX_PK=b CPX_Profile_FK=x"),
        "extension pk=b profileFk=y\nextension pk=a profileFk=x\nextension pk=b profileFk=x");
    row("list classes of one key, in file order",
        record("LC LC_PK=b LC_Profile_FK=y LC_Class_ID~c")
            + record("LC LC_PK=b LC_Profile_FK=x LC_Class_ID~c"),
        "class pk=b classId=c profileFk=y\nclass pk=b classId=c profileFk=x");
    row("columns of one identifier, in file order",
        record("COL COL_Profile_FK=y COL_Column_ID~b COL_DataType=INT")
            + record("COL COL_Profile_FK=y COL_Column_ID~a COL_DataType=DAT")
            + record("COL COL_Profile_FK=x COL_Column_ID~b COL_DataType=BOL")
            + record("COL COL_Profile_FK=y COL_Column_ID~b COL_DataType=TXT"),
        "column[a] profileFk=y columnId=a dataType=5\ncolumn[b] profileFk=y columnId=b dataType=2\ncolumn[b] "
        "profileFk=x columnId=b dataType=4\ncolumn[b] profileFk=y columnId=b dataType=1");
    row("list items of one class, in file order, without the class",
        record("LIST LIST_Class_FK=b LIST_Item=z LIST_SortOrder=9")
            + record("LIST LIST_Class_FK=a LIST_Item=y")
            + record("LIST LIST_Class_FK=b LIST_Item=x LIST_SortOrder=1")
            + record("LIST LIST_Class_FK=b LIST_Item=z LIST_SortOrder=9"),
        "entry[a] item=y classFk=a\nentry[b] item=z classFk=b sortOrder=9\nentry[b] item=x classFk=b "
        "sortOrder=1\nentry[b] item=z classFk=b sortOrder=9");
    row("parameter of a repeated key replaces the earlier one whole",
        record("PARAM PARAM_PK=a PARAM_ID=1st PARAM_Unit=mm") + record("PARAM PARAM_PK=a PARAM_ID=2nd"),
        "parameter[a] pk=a id=2nd");
    row("parameter extension of a repeated key replaces the earlier one whole",
        record("PARAMX PX_PK=a PX_Default=1st PX_Length=3") + record("PARAMX PX_PK=a PX_Default=2nd"),
        "field[a] defaultValue=2nd");
    row("item of a repeated id replaces the earlier one of any kind",
        record("CLASS CLASS_PK=a CLASS_Remarks=1st") + record("BASECODE BC_PK=a BC_CloseCode=2nd")
            + record("BASECODE BC_PK=b BC_Remarks=1st") + record("CHAREXT CE_PK=b CE_Follower=2nd"),
        "item[a] id=a closeCode=2nd\nitem[b] id=b followers=2nd");
    row("keys differ in letter case", record("PARAM PARAM_PK=a") + record("PARAM PARAM_PK=A"),
        "parameter[A] pk=A\nparameter[a] pk=a");

    row("column of unknown type left out",
        record("COL COL_Profile_FK=p COL_Column_ID~a COL_DataType=txt")
            + record("COL COL_Profile_FK=p COL_Column_ID~a COL_DataType=DECIMAL")
            + record("COL COL_Profile_FK=p COL_Column_ID~a") + record("CATPRO PRO_PK=p"),
        "profile pk=p");
    row("types of parameters",
        record("PARAM PARAM_PK=a PARAM_DataType=TXT") + record("PARAM PARAM_PK=b PARAM_DataType=INT")
            + record("PARAM PARAM_PK=c PARAM_DataType=DEC") + record("PARAM PARAM_PK=d PARAM_DataType=BOL")
            + record("PARAM PARAM_PK=e PARAM_DataType=DAT"),
        "parameter[a] pk=a dataType=1\nparameter[b] pk=b dataType=2\nparameter[c] pk=c "
        "dataType=3\nparameter[d] pk=d dataType=4\nparameter[e] pk=e dataType=5");
    row("unknown types of parameters",
        record("PARAM PARAM_PK=a PARAM_DataType=Int") + record("PARAM PARAM_PK=b PARAM_DataType=dat")
            + record("PARAM PARAM_PK=c PARAM_DataType=1")
            + "<PARAM><PARAM_PK>d</PARAM_PK><PARAM_DataType> TXT</PARAM_DataType></PARAM>",
        "parameter[a] pk=a\nparameter[b] pk=b\nparameter[c] pk=c\nparameter[d] pk=d");

    row("other extension as parent, given first", record("CHAREXT CE_PK=a CE_CharExt_REF=x CE_BaseCode_FK=b"),
        "item[a] id=a parentId=x");
    row("other extension as parent, given last", record("CHAREXT CE_PK=a CE_BaseCode_FK=b CE_CharExt_REF=x"),
        "item[a] id=a parentId=x");
    row("base code as parent, twice", record("CHAREXT CE_PK=a CE_BaseCode_FK=b CE_BaseCode_FK=c"),
        "item[a] id=a parentId=b");
    row("other extension as parent, twice", record("CHAREXT CE_PK=a CE_CharExt_REF=x CE_CharExt_REF=y"),
        "item[a] id=a parentId=y");
    row("other extension left empty", record("CHAREXT CE_PK=a CE_BaseCode_FK=b CE_CharExt_REF="),
        "item[a] id=a parentId=b");
}

void CatalogXMLParserTest::readsRecords()
{
    QFETCH(QByteArray, records);
    QFETCH(QString, lines);
    const Reading reading(catalogXml(records));
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(), lines);
    QCOMPARE(int(reading.parser().failure().reason), int(CatalogReadFailure::None));
}

void CatalogXMLParserTest::readsNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<qint64>("longNumber");

    const auto row = [](const char *name, const char *text, int number, qint64 longNumber) {
        QTest::newRow(name) << text << number << longNumber;
    };

    row("digits", "12", 12, 12);
    row("plus sign", "+12", 12, 12);
    row("minus sign", "-12", -12, -12);
    row("leading zeros are decimal", "010", 10, 10);
    row("largest", "2147483647", 2147483647, 2147483647);
    row("one more", "2147483648", 0, 2147483648);
    row("smallest", "-2147483648", std::numeric_limits<int>::min(), -2147483648);
    row("one less", "-2147483649", 0, -2147483649);
    row("largest of 64 bits", "9223372036854775807", 0, std::numeric_limits<qint64>::max());
    row("one more than 64 bits", "9223372036854775808", 0, 0);
    row("hexadecimal", "0x10", 0, 0);
    row("fraction", "1.5", 0, 0);
    row("group separators", "1,000", 0, 0);
    row("digits and letters", "12mm", 0, 0);
    row("word", "abc", 0, 0);
    row("only blanks", "  ", 0, 0);
}

void CatalogXMLParserTest::readsNumbers()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(qint64, longNumber);
    // The first field of each name shows that a text that is no number counts as 0, not as nothing.
    const Reading reading(
        catalogXml("<PARAM><PARAM_PK>a</PARAM_PK>" + field("PARAM_SortOrder", QStringLiteral("7"))
                   + field("PARAM_SortOrder", text) + field("PARAM_TypeFlags", QStringLiteral("7"))
                   + field("PARAM_TypeFlags", text) + "</PARAM>"));
    QVERIFY(reading.succeeded());
    const CatalogParserParameter parameter = reading.parser().m_parameters.value(QStringLiteral("a"));
    QCOMPARE(parameter.sortOrder, number);
    QCOMPARE(parameter.typeFlags, longNumber);
}

void CatalogXMLParserTest::readsPiecesOfText_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fields");

    const auto row = [](const char *name, const QByteArray &content, const QByteArray &fields) {
        QTest::newRow(name) << content << QString::fromUtf8(fields);
    };

    const auto described = [](const QByteArray &text) {
        return profileWith("<PRO_Description>" + text + "</PRO_Description>");
    };
    row("blanks", described(" 12 "), " description= 12 ");
    row("only blanks", described(" \n\t"), " description= \n\t");
    row("CDATA section", described("<![CDATA[<b> ]]>"), " description=<b> ");
    row("CDATA section behind text", described("ab<![CDATA[cd]]>"), " description=ab");
    row("CDATA section behind a blank", described(" <![CDATA[cd]]>"), " description= ");
    row("text behind a CDATA section", described("<![CDATA[ab]]>cd"), " description=ab");
    row("empty CDATA section first", described("x</PRO_Description><PRO_Description><![CDATA[]]>ab"), "");
    row("comment inside", described("ab<!-- x -->cd"), " description=ab");
    row("comment first", described("<!-- x -->ab"), " description=ab");
    row("processing instruction inside", described("ab<?x y?>cd"), " description=ab");
    row("processing instruction first", described("<?x y?>ab"), " description=ab");
    row("character references", described("a&#66;&#x20AC;&lt;&amp;&gt;b"), " description=aB\u20AC<&>b");
    row("letter beyond 16 bits", described("\U0001F687"), " description=\U0001F687");
    row("longer than the reader's blocks", described(QByteArray(30000, 'x')),
        " description=" + QByteArray(30000, 'x'));
    row("internal entity", "<!DOCTYPE OVCAT [<!ENTITY e \"cd\">]>" + described("ab&e;ef"),
        " description=abcdef");
    row("entity with markup", "<!DOCTYPE OVCAT [<!ENTITY e \"<b>x</b>\">]>" + described("ab&e;cd"),
        " description=ab");
    row("element inside text", described("ab<b>cd</b>ef"), " description=ab");
    row("element before text", described("<b>cd</b>ef"), "");
    row("other field inside a field", described("<PRO_Format>f</PRO_Format>ef"), " format=f");
    row("field of another record", described("<CPX_PK>f</CPX_PK>"), "");
    row("given twice", described("first</PRO_Description><PRO_Description>second"), " description=second");
    row("given twice, empty at last", described("first</PRO_Description><PRO_Description>"),
        " description=first");
    row("empty, white space behind it",
        profileWith("<PRO_Description></PRO_Description>\n  <PRO_Format>f</PRO_Format>"), " format=f");
    row("empty, text behind it", profileWith("<PRO_Description/>no <PRO_Format>f</PRO_Format>"), " format=f");
    row("empty number, digit behind it", profileWith("<PRO_SortOrder></PRO_SortOrder>3"), "");
    row("text between fields", profileWith("no<PRO_Format>f</PRO_Format>no"), " format=f");
    row("unknown field", profileWith("<PRO_Other>x</PRO_Other>"), "");
}

void CatalogXMLParserTest::readsPiecesOfText()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, fields);
    const Reading reading(content);
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(), QStringLiteral("profile pk=p") + fields);
}

void CatalogXMLParserTest::readsScrambledText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("caption");

    const auto row = [](const char *name, const char *text, const char *caption) {
        QTest::newRow(name) << text << caption;
    };

    // "A" is 0x41: rotated left by 2, 3, 4, 5, 1 and 2 it is 05, 0A, 14, 28, 82 and 05.
    row("every rotation count", "050A14288205", "AAAAAA");
    row("small digits", "050a14288205", "AAAAAA");
    row("odd length", "050A1", "AA");
    row("one character", "0", "");
    row("zero byte", "00", "");
    row("ends at a zero byte", "05000A", "A");
    row("pair that is no number", "05xx0A", "A");
}

void CatalogXMLParserTest::readsScrambledText()
{
    QFETCH(QString, text);
    QFETCH(QString, caption);
    const Reading reading(
        catalogXml("<PARAM>" + field("PARAM_PK", text) + field("PARAM_Caption", text) + "</PARAM>"));
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.parser().m_parameters.value(text).caption, caption);
}

void CatalogXMLParserTest::logsOnlyTextsThatAreNoBooleans()
{
    const LogCapture log;
    const Reading reading(catalogXml(
        "<CPX><CPX_PK>a</CPX_PK><CPX_Profile_FK>p</CPX_Profile_FK><CPX_IsStart>FALSE</CPX_IsStart>"
        "<CPX_IsOrvida> true</CPX_IsOrvida></CPX>\n"
        "<CPX><CPX_PK>b</CPX_PK><CPX_Profile_FK>p</CPX_Profile_FK><CPX_IsStart></CPX_IsStart>\n"
        "<CPX_IsOrvida>true</CPX_IsOrvida><CPX_IsOrvida>%1</CPX_IsOrvida></CPX>\n"
        + record("CATPRO PRO_PK=p PRO_SortOrder=none")
        + record("COL COL_Profile_FK=p COL_Column_ID~c COL_DataType=none") + record("UNKNOWN PRO_PK=p")));
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(),
             QStringLiteral("profile pk=p\nextension pk=a profileFk=p\nextension pk=b profileFk=p"));
    QCOMPARE(log.messages(),
             QStringList({QStringLiteral("DataConverter|critical|stringToBool conversion error!  true"),
                          QStringLiteral("DataConverter|critical|stringToBool conversion error! %1")}));
}

void CatalogXMLParserTest::readsStructure_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("lines");

    const auto row = [](const char *name, const QByteArray &content, const char *lines) {
        QTest::newRow(name) << content << lines;
    };

    const QByteArray profile = record("CATPRO PRO_PK=p");
    const QByteArray nesting = QByteArray("<a>").repeated(150000) + QByteArray("</a>").repeated(150000);
    row("other spelling of the root", "<OVCat>" + profile + "</OVCat>", "profile pk=p");
    row("root without records", QByteArray("<OVCAT/>"), "");
    row("roots inside the root",
        "<OVCAT>" + profile + "<OVCat><OVCAT>" + record("CATPRO PRO_PK=q") + "</OVCAT></OVCat>"
            + record("CATPRO PRO_PK=r") + "</OVCAT>",
        "profile pk=p\nprofile pk=q\nprofile pk=r");
    row("record without root", profile, "profile pk=p");
    row("root in small letters", "<ovcat>" + profile + "</ovcat>", "");
    row("unknown root, root inside", "<CATALOGS><OVCAT>" + profile + "</OVCAT></CATALOGS>", "");
    row("record in a wrapper", "<OVCAT><records>" + profile + "</records></OVCAT>", "");
    row("record in the catalog information", "<OVCAT><CATALOG>" + profile + "</CATALOG></OVCAT>", "");
    row("record in a record", "<OVCAT><CLASS><CLASS_PK>a</CLASS_PK>" + profile + "</CLASS></OVCAT>",
        "item[a] id=a");
    row("records in small letters", "<OVCAT><catpro/><CatPro/>" + record("Param PARAM_PK=a") + "</OVCAT>",
        "");
    row("field in another letter case", profileWith("<PRO_FORMAT>f</PRO_FORMAT><pro_pk>q</pro_pk>"),
        "profile pk=p");
    row("attributes",
        QByteArray("<OVCAT PRO_PK='x'><CATPRO PRO_PK='y' a='b'><PRO_PK PRO_PK='z'>p</PRO_PK><PRO_Format "
                   "PRO_Format='f'/></CATPRO></OVCAT>"),
        "profile pk=p");
    row("prefixes",
        QByteArray("<c:OVCAT xmlns:c='urn:c'><c:CATPRO><c:PRO_PK>p</c:PRO_PK></c:CATPRO></c:OVCAT>"),
        "profile pk=p");
    row("all that is no element between elements",
        "<!DOCTYPE OVCAT>\n<!-- x --><?x y?>\n<OVCAT>text<!-- <CATPRO/> --><![CDATA[<CATPRO/>]]><?x y?>"
            + profile + "</OVCAT>\n<!-- x -->\n",
        "profile pk=p");
    row("empty records of unknown kinds", "<OVCAT><X/><Y></Y>" + profile + "<Z/></OVCAT>", "profile pk=p");
    row("nested deep under the root", "<OVCAT>" + nesting + profile + "</OVCAT>", "profile pk=p");
    row("nested deep in a record", profileWith(nesting + "<PRO_Format>f</PRO_Format>"),
        "profile pk=p format=f");
}

void CatalogXMLParserTest::readsStructure()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, lines);
    const Reading reading(content);
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(), lines);
}

void CatalogXMLParserTest::readsEncodings_data()
{
    QTest::addColumn<QByteArray>("content");

    const auto declared = [](const char *encoding) {
        return QStringLiteral("<?xml version='1.0' encoding='%1'?>").arg(QLatin1String(encoding));
    };
    const QString text = QStringLiteral("<CATPRO><PRO_PK>d\u00E9p\u00F4t</PRO_PK></CATPRO>");
    QByteArray littleEndian;
    QByteArray bigEndian;
    for (const QChar c : QString(QChar(QChar::ByteOrderMark) + declared("UTF-16") + text)) {
        const char bytes[] = {char(c.cell()), char(c.row()), char(c.cell())};
        littleEndian.append(bytes, 2);
        bigEndian.append(bytes + 1, 2);
    }

    QTest::newRow("UTF-8 without declaration") << text.toUtf8();
    QTest::newRow("UTF-8") << (declared("UTF-8") + text).toUtf8();
    QTest::newRow("UTF-8 with a byte order mark")
        << (QChar(QChar::ByteOrderMark) + declared("UTF-8") + text).toUtf8();
    QTest::newRow("UTF-16, little-endian") << littleEndian;
    QTest::newRow("UTF-16, big-endian") << bigEndian;
    QTest::newRow("ISO-8859-1") << (declared("ISO-8859-1") + text).toLatin1();
}

void CatalogXMLParserTest::readsEncodings()
{
    QFETCH(QByteArray, content);
    const Reading reading(content);
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(), QStringLiteral("profile pk=d\u00E9p\u00F4t"));
}

QTEST_GUILESS_MAIN(CatalogXMLParserTest)

#include "CatalogXMLParserTest.moc"
