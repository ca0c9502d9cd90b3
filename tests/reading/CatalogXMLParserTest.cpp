// Reading of catalog files: records and items, their keys, pieces of text and structure.

#include "catalogs/reading/CatalogXMLParser.h"

#include "reading/RecordListing.h"
#include "support/TestSupport.h"

#include <QtTest>

using namespace Orvida::Tests;

namespace {

// Tables of catalog files and the lines of what is read from them, without a word in the log.
void addReadingColumns()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("lines");
}

void addReading(const char *name, const QByteArray &content, const QByteArray &lines)
{
    QTest::newRow(name) << content << QString::fromUtf8(lines);
}

void readsWhatTheRowSays()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, lines);
    const LogCapture log;
    const Reading reading(content);
    QVERIFY(reading.succeeded());
    QCOMPARE(reading.lines(), lines);
    QCOMPARE(log.messages(), QStringList());
}

} // namespace

class CatalogXMLParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryField_data();
    void readsEveryField() { readsWhatTheRowSays(); }
    void refusesRecordWithoutKey_data();
    void refusesRecordWithoutKey();
    void readsRecords_data();
    void readsRecords() { readsWhatTheRowSays(); }
    void readsFirstPieceOfText_data();
    void readsFirstPieceOfText() { readsWhatTheRowSays(); }
    void readsStructure_data();
    void readsStructure() { readsWhatTheRowSays(); }
    void logsOnlyTextsThatAreNoBooleans();
    void sharesTextsThatComeAgain();
};

void CatalogXMLParserTest::readsEveryField_data()
{
    addReadingColumns();
    const auto row = [](const char *name, const char *description, const char *lines) {
        addReading(name, catalogXml(records(description)), lines);
    };

    row("profile", "CATPRO PRO_PK=a PRO_Format=b PRO_ExportType=c PRO_Description=d PRO_SortOrder=-5",
        "profile pk=a format=b exportType=c description=d sortOrder=-5");
    row("profile extension",
        "CPX CPX_PK=a CPX_Profile_FK=b CPX_IsStart=true|CPX CPX_PK=c CPX_Profile_FK=d CPX_IsOrvida=True",
        "extension pk=a profileFk=b isStart=true|extension pk=c profileFk=d isOrvida=true");
    row("column",
        "COL COL_Profile_FK=a COL_Column_ID~b COL_Export_ID=c COL_Caption~d COL_DataType=DEC COL_Length=11 "
        "COL_RangeFrom=l COL_RangeTo=m COL_Steps=n COL_Precision=15 COL_Default=o COL_Unit=q "
        "COL_InputFmt=r COL_DisplayFmt=s COL_ListClass_REF=t COL_ToolTip=u COL_SortOrder=22",
        "column[b] profileFk=a listClassRef=t columnId=b exportId=c caption=d defaultValue=o inputFormat=r "
        "displayFormat=s unit=q toolTip=u rangeFrom=l rangeTo=m steps=n length=11 precision=15 sortOrder=22 "
        "dataType=3");
    row("flags of a column",
        "COL COL_Profile_FK=p COL_Column_ID~a COL_DataType=TXT COL_Transport=true|"
        "COL COL_Profile_FK=p COL_Column_ID~b COL_DataType=INT COL_Virtual=true|"
        "COL COL_Profile_FK=p COL_Column_ID~c COL_DataType=BOL COL_Visible=true|"
        "COL COL_Profile_FK=p COL_Column_ID~d COL_DataType=DAT COL_ReadOnly=true|"
        "COL COL_Profile_FK=p COL_Column_ID~e COL_DataType=DEC COL_Mandatory=true",
        "column[a] profileFk=p columnId=a transport=true dataType=1|"
        "column[b] profileFk=p columnId=b isVirtual=true dataType=2|"
        "column[c] profileFk=p columnId=c visible=true dataType=4|"
        "column[d] profileFk=p columnId=d readOnly=true dataType=5|"
        "column[e] profileFk=p columnId=e mandatory=true dataType=3");
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
        "BC_Construction=14|BASECODE BC_PK=b BC_IsVirtual=true",
        "item[a] id=a parentId=c caption=d code=f remarks=e observationText=i closeCode=k typeFlags=13 "
        "sortOrder=2 constructionType=14 autoPicture=true|item[b] id=b isVirtual=true");
    row("character extension",
        "CHAREXT CE_PK=a CE_SortOrder=2 CE_BaseCode_FK=c CE_CharExt_REF=d CE_Item~e CE_Remarks=f CE_Code~g "
        "CE_AltCode=h CE_Follower=i CE_ObsText~j CE_ChildCaption=k CE_CloseCode=l CE_AutoPicture=true "
        "CE_TypeFlags=-14 CE_Construction=15",
        "item[a] id=a parentId=d caption=e code=g followers=i remarks=f observationText=j closeCode=l "
        "typeFlags=-14 sortOrder=2 constructionType=15 autoPicture=true");
}

// Records of nothing but the keys that they must have.
void CatalogXMLParserTest::refusesRecordWithoutKey_data()
{
    QTest::addColumn<QString>("description");
    for (const char *description :
         {"CATPRO PRO_PK=a", "CPX CPX_PK=a CPX_Profile_FK=b", "COL COL_Profile_FK=a COL_Column_ID~b",
          "LC LC_Profile_FK=a LC_Class_ID~b", "LIST LIST_Class_FK=a", "PARAM PARAM_PK=a", "PARAMX PX_PK=a",
          "CLASS CLASS_PK=a", "BASECODE BC_PK=a", "CHAREXT CE_PK=a"})
        QTest::newRow(description) << description;
}

void CatalogXMLParserTest::refusesRecordWithoutKey()
{
    QFETCH(QString, description);
    QVERIFY(Reading(catalogXml(records(description.toUtf8()))).succeeded());

    const QStringList words = description.split(QLatin1Char(' '));
    for (int i = 1; i < words.size(); ++i) {
        const QString key = words.at(i).section(QRegularExpression(QStringLiteral("[=~]")), 0, 0);
        for (const QString &replacement : {QStringLiteral("Other=x"), QString(key + QLatin1Char('='))}) {
            QStringList broken = words;
            broken[i] = replacement;
            const QByteArray text = broken.join(QLatin1Char(' ')).toUtf8() + "|CATPRO PRO_PK=behind";
            const Reading reading(catalogXml(records("CATPRO PRO_PK=before|" + text)));
            QVERIFY(!reading.succeeded());
            QCOMPARE(reading.lines(), QStringLiteral("profile pk=before"));
            QCOMPARE(reading.failure().missingFields + QStringList(reading.failure().record),
                     QStringList({key, words.first()}));
        }
    }
}

void CatalogXMLParserTest::readsRecords_data()
{
    addReadingColumns();
    const auto row = [](const char *name, const char *descriptions, const char *lines) {
        addReading(name, catalogXml(records(descriptions)), lines);
    };

    row("profiles, extensions and list classes of one key, in file order",
        "CATPRO PRO_PK=b PRO_Format=1st|CATPRO PRO_PK=a|CATPRO PRO_PK=b|CPX CPX_PK=b CPX_Profile_FK=y|"
        "CPX CPX_PK=b CPX_Profile_FK=x|LC LC_PK=b LC_Profile_FK=y LC_Class_ID~c|LC LC_Profile_FK=x "
        "LC_Class_ID~c",
        "profile pk=b format=1st|profile pk=a|profile pk=b|extension pk=b profileFk=y|"
        "extension pk=b profileFk=x|class pk=b classId=c profileFk=y|class classId=c profileFk=x");
    row("columns of one identifier, in file order",
        "COL COL_Profile_FK=y COL_Column_ID~b COL_DataType=INT|COL COL_Profile_FK=y COL_Column_ID~a "
        "COL_DataType=DAT|COL COL_Profile_FK=x COL_Column_ID~b COL_DataType=BOL",
        "column[a] profileFk=y columnId=a dataType=5|column[b] profileFk=y columnId=b dataType=2|"
        "column[b] profileFk=x columnId=b dataType=4");
    row("list items of one class, in file order, without the class",
        "LIST LIST_Class_FK=b LIST_Item=z LIST_SortOrder=9|LIST LIST_Class_FK=a LIST_Item=y|"
        "LIST LIST_Class_FK=b LIST_Item=x",
        "entry[a] item=y classFk=a|entry[b] item=z classFk=b sortOrder=9|entry[b] item=x classFk=b");
    row("parameter and its extension of a repeated key replace the earlier ones whole",
        "PARAM PARAM_PK=a PARAM_ID=1st PARAM_Unit=mm|PARAM PARAM_PK=a PARAM_ID=2nd|"
        "PARAMX PX_PK=a PX_Default=1st PX_Length=3|PARAMX PX_PK=a PX_Default=2nd",
        "parameter[a] pk=a id=2nd|field[a] defaultValue=2nd");
    row("item of a repeated id replaces the earlier one of any kind",
        "CLASS CLASS_PK=a CLASS_Remarks=1st|BASECODE BC_PK=a BC_CloseCode=2nd|BASECODE BC_PK=b "
        "BC_Remarks=1st|CHAREXT CE_PK=b CE_Follower=2nd",
        "item[a] id=a closeCode=2nd|item[b] id=b followers=2nd");
    row("column of unknown type left out",
        "COL COL_Profile_FK=p COL_Column_ID~a COL_DataType=txt|COL COL_Profile_FK=p COL_Column_ID~a|"
        "CATPRO PRO_PK=p",
        "profile pk=p");
    row("types of parameters",
        "PARAM PARAM_PK=a PARAM_DataType=TXT|PARAM PARAM_PK=b PARAM_DataType=INT|PARAM PARAM_PK=c "
        "PARAM_DataType=DEC|PARAM PARAM_PK=d PARAM_DataType=DAT|PARAM PARAM_PK=e PARAM_DataType=dat",
        "parameter[a] pk=a dataType=1|parameter[b] pk=b dataType=2|parameter[c] pk=c dataType=3|"
        "parameter[d] pk=d dataType=5|parameter[e] pk=e");
    row("numbers are decimal, and 0 when they are none or out of range",
        "PARAM PARAM_PK=a PARAM_SortOrder=010 PARAM_TypeFlags=-4294967296|PARAM PARAM_PK=b PARAM_SortOrder=7 "
        "PARAM_SortOrder=2147483648 PARAM_TypeFlags=7 PARAM_TypeFlags=0x10",
        "parameter[a] pk=a sortOrder=10 typeFlags=-4294967296|parameter[b] pk=b");
    row("other extension as parent before or behind the base code",
        "CHAREXT CE_PK=a CE_CharExt_REF=x CE_BaseCode_FK=b|CHAREXT CE_PK=b CE_BaseCode_FK=b CE_CharExt_REF=x",
        "item[a] id=a parentId=x|item[b] id=b parentId=x");
    row("parent given twice, and other extension left empty",
        "CHAREXT CE_PK=a CE_BaseCode_FK=b CE_BaseCode_FK=c|CHAREXT CE_PK=b CE_CharExt_REF=x CE_CharExt_REF=y|"
        "CHAREXT CE_PK=c CE_BaseCode_FK=b CE_CharExt_REF=",
        "item[a] id=a parentId=b|item[b] id=b parentId=y|item[c] id=c parentId=b");
}

// Each row is what stands in a profile behind its key.
void CatalogXMLParserTest::readsFirstPieceOfText_data()
{
    addReadingColumns();
    const auto row = [](const char *name, const QByteArray &fields, const QByteArray &read) {
        addReading(name, catalogXml("<CATPRO><PRO_PK>p</PRO_PK>" + fields + "</CATPRO>"),
                   "profile pk=p" + read);
    };

    row("blanks", "<PRO_Format> \n\t</PRO_Format>", " format= \n\t");
    row("CDATA section", "<PRO_Format><![CDATA[<b> ]]></PRO_Format>", " format=<b> ");
    row("CDATA section behind a blank", "<PRO_Format> <![CDATA[b]]></PRO_Format>", " format= ");
    row("text behind an empty CDATA section", "<PRO_Format><![CDATA[]]>b</PRO_Format>", "");
    row("comment inside", "<PRO_Format>a<!-- x -->b</PRO_Format>", " format=a");
    row("comment first", "<PRO_Format><!-- x -->a</PRO_Format>", " format=a");
    row("references", "<PRO_Format>a&#66;&#x1F687;&lt;&amp;</PRO_Format>", " format=aB\U0001F687<&");
    row("longer than the reader's blocks", "<PRO_Format>" + QByteArray(30000, 'x') + "</PRO_Format>",
        " format=" + QByteArray(30000, 'x'));
    row("element inside text", "<PRO_Format>a<b>c</b>d</PRO_Format>", " format=a");
    row("element before text", "<PRO_Format><b>c</b>d</PRO_Format>", "");
    row("other field inside", "<PRO_Format><PRO_ExportType>t</PRO_ExportType>f</PRO_Format>",
        " exportType=t");
    row("given twice", "<PRO_Format>a</PRO_Format><PRO_Format>b</PRO_Format>", " format=b");
    row("empty at last", "<PRO_Format>a</PRO_Format><PRO_Format></PRO_Format>\n", " format=a");
    row("text behind empty fields", "<PRO_Format/>no<PRO_SortOrder></PRO_SortOrder>3", "");
    row("unknown field, and one of another record", "<Other>x</Other><CPX_PK>x</CPX_PK>", "");
    row("key of a blank", "</CATPRO><CATPRO><PRO_PK> </PRO_PK>", "|profile pk= ");
}

void CatalogXMLParserTest::readsStructure_data()
{
    addReadingColumns();
    const auto row = [](const char *name, QByteArray content, const char *lines) {
        addReading(name, content.replace("{p}", records("CATPRO PRO_PK=p")), lines);
    };

    row("other spelling of the root", "<OVCat>{p}</OVCat>", "profile pk=p");
    row("roots inside the root", "<OVCAT><OVCat><OVCAT>{p}</OVCAT></OVCat>{p}</OVCAT>",
        "profile pk=p|profile pk=p");
    row("root in small letters", "<ovcat>{p}</ovcat>", "");
    row("records that do not stand in the root itself",
        "<OVCAT><records>{p}</records><CATALOG>{p}</CATALOG><CLASS><CLASS_PK>a</CLASS_PK>{p}</CLASS></OVCAT>",
        "item[a] id=a");
    row("names in other letter cases",
        "<OVCAT><catpro/><CatPro/><PARAM><PARAM_PK>a</PARAM_PK><PARAM_unit>m</PARAM_unit></PARAM></OVCAT>",
        "parameter[a] pk=a");
    row("attributes and prefixes",
        "<c:OVCAT xmlns:c='u'><c:CATPRO PRO_PK='a'><c:PRO_PK b=''>p</c:PRO_PK></c:CATPRO></c:OVCAT>",
        "profile pk=p");
    row("all that is no element between elements",
        "<!DOCTYPE OVCAT>\n<!-- x --><?x y?>\n<OVCAT>text<!-- {p} --><![CDATA[<CATPRO/>]]>{p}</OVCAT>\n<?x?>",
        "profile pk=p");
    row("entities in the first piece of text",
        "<!DOCTYPE OVCAT [<!ENTITY e 'cd'><!ENTITY f '<b>x</b>'>]>"
        "<CATPRO><PRO_PK>ab&e;ef&f;gh</PRO_PK></CATPRO>",
        "profile pk=abcdef");
    row("another encoding",
        "<?xml version='1.0' encoding='ISO-8859-1'?><CATPRO><PRO_PK>d\xE9p\xF4t</PRO_PK></CATPRO>",
        "profile pk=d\u00E9p\u00F4t");
}

void CatalogXMLParserTest::logsOnlyTextsThatAreNoBooleans()
{
    const LogCapture log;
    const Reading reading(catalogXml(
        records("CPX CPX_PK=a CPX_Profile_FK=p CPX_IsStart=FALSE CPX_IsOrvida=true CPX_IsOrvida=%1")));
    QCOMPARE(reading.lines(), QStringLiteral("extension pk=a profileFk=p"));
    QCOMPARE(log.messages(),
             QStringList(QStringLiteral("DataConverter|critical|stringToBool conversion error! %1")));
}

// Keys that differ in one letter, three times each, and between them first pieces of text that are empty.
void CatalogXMLParserTest::sharesTextsThatComeAgain()
{
    QByteArray content;
    QStringList expected;
    for (int number = 0; number < 300; ++number) {
        const QString key = QStringLiteral("key %1").arg(number % 100);
        content += "<LIST><LIST_Class_FK>a</LIST_Class_FK><LIST_Internal><![CDATA[]]>x</LIST_Internal>"
                   + field("LIST_Item", key) + scrambled("LIST_Caption", key) + "</LIST>";
        expected += key;
    }
    const CatalogFolder folder;
    CatalogXMLParser parser;
    Items items;
    QVERIFY(parser.readFile(folder.write(text("texts.xml"), catalogXml(content)), items));
    const auto read = parser.m_listItems.value(text("a"));
    int shared = 0;
    for (int number = 0; number < 300; ++number) {
        QCOMPARE(read.at(number).item, expected.at(number));
        QCOMPARE(read.at(number).caption, expected.at(number));
        QVERIFY(read.at(number).internal.isEmpty() && !read.at(number).internal.isNull());
        QVERIFY(read.at(number).paramId.isNull());
        shared += number >= 200 && read.at(number).item.constData() == read.at(number - 100).item.constData();
    }
    QVERIFY2(shared > 50, qPrintable(QString::number(shared))); // some share a place
}

QTEST_GUILESS_MAIN(CatalogXMLParserTest)

#include "CatalogXMLParserTest.moc"
