// The vocabulary of catalog files.

#include "catalogs/reading/CCatalogTokenizer.h"

#include <QtTest>

namespace {

using Tokenizer = CCatalogTokenizer;

template <auto lookup>
int valueOf(const QStringRef &name)
{
    return static_cast<int>(lookup(name));
}

struct Table
{
    const char *context;
    int (*valueOf)(const QStringRef &name);
    const char *names; // in the order of their values, from 1
};

const Table tables[] = {
    {"sections", valueOf<&Tokenizer::stringToCatalogToken>,
     "OVCAT CATALOG CATPRO CPX COL LC LIST CLASS BASECODE CHAREXT PARAM PARAMX"},
    {"CATALOG", valueOf<&Tokenizer::stringToCatalogInfoToken>,
     "CAT_PK CAT_Country CAT_Language CAT_ObjectType CAT_BaseType CAT_CustomType CAT_Version CAT_Description "
     "CAT_Publisher CAT_Copyright CAT_Style"},
    {"CATPRO", valueOf<&Tokenizer::stringToProfileToken>,
     "PRO_PK PRO_Format PRO_ExportType PRO_Description PRO_SortOrder"},
    {"CPX", valueOf<&Tokenizer::stringToProfileExtensionToken>,
     "CPX_PK CPX_Profile_FK CPX_IsStart CPX_IsOrvida"},
    {"COL", valueOf<&Tokenizer::stringToColumnToken>,
     "COL_Profile_FK COL_Column_ID COL_Export_ID COL_Caption COL_Transport COL_Virtual COL_Visible "
     "COL_ReadOnly COL_Mandatory COL_DataType COL_Length COL_RangeFrom COL_RangeTo COL_Steps COL_Precision "
     "COL_Default COL_Unit COL_InputFmt COL_DisplayFmt COL_ListClass_REF COL_ToolTip COL_SortOrder"},
    {"LC", valueOf<&Tokenizer::stringToListClassToken>,
     "LC_PK LC_Profile_FK LC_Class_ID LC_Caption LC_TypeFlags"},
    {"LIST", valueOf<&Tokenizer::stringToListItemToken>,
     "LIST_PK LIST_Class_FK LIST_Item LIST_Caption LIST_Internal LIST_SortOrder LIST_Param_ID"},
    {"CLASS", valueOf<&Tokenizer::stringToCodeClassToken>,
     "CLASS_PK CLASS_SortOrder CLASS_Item CLASS_Remarks CLASS_ChildCaption CLASS_IsVirtual"},
    {"BASECODE", valueOf<&Tokenizer::stringToBaseCodeToken>,
     "BC_PK BC_SortOrder BC_Class_FK BC_Item BC_Remarks BC_Code BC_AltCode BC_Follower BC_ObsText "
     "BC_ChildCaption BC_CloseCode BC_AutoPicture BC_TypeFlags BC_Construction BC_IsVirtual"},
    {"CHAREXT", valueOf<&Tokenizer::stringToCharacterExtensionToken>,
     "CE_PK CE_SortOrder CE_BaseCode_FK CE_CharExt_REF CE_Item CE_Remarks CE_Code CE_AltCode CE_Follower "
     "CE_ObsText CE_ChildCaption CE_CloseCode CE_AutoPicture CE_TypeFlags CE_Construction"},
    {"PARAM", valueOf<&Tokenizer::stringToParameterToken>,
     "PARAM_PK PARAM_SortOrder PARAM_ID PARAM_DataType PARAM_Placeholder PARAM_Caption PARAM_Prefix "
     "PARAM_Suffix PARAM_Unit PARAM_TypeFlags"},
    {"PARAMX", valueOf<&Tokenizer::stringToParameterExtensionToken>,
     "PX_PK PX_BaseCode_FK PX_CharExt_FK PX_Param_FK PX_Mandatory PX_Length PX_RangeFrom PX_RangeTo PX_Steps "
     "PX_Precision PX_Default PX_InputFmt PX_DisplayFmt PX_ClockType PX_Column_ID PX_ListClass_ID"},
};

QStringList namesOf(const Table &table)
{
    return QString::fromLatin1(table.names).split(QLatin1Char(' '));
}

} // namespace

class CCatalogTokenizerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsEveryNameOfATable_data() { addTables(); }
    void knowsEveryNameOfATable();
    void knowsNoNameOfAnotherTable_data() { addTables(); }
    void knowsNoNameOfAnotherTable();
    void comparesNamesExactly_data() { addTables(); }
    void comparesNamesExactly();
    void knowsNoEmptyName_data() { addTables(); }
    void knowsNoEmptyName();
    void takesBothSpellingsOfTheRoot_data();
    void takesBothSpellingsOfTheRoot();

private:
    static void addTables();
};

void CCatalogTokenizerTest::addTables()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Table &table : tables)
        QTest::newRow(table.context) << index++;
}

void CCatalogTokenizerTest::knowsEveryNameOfATable()
{
    QFETCH(int, index);
    int value = 0;
    for (const QString &name : namesOf(tables[index])) {
        // A name lies somewhere in the reader's buffer.
        const QString buffer = QLatin1Char('<') + name + QLatin1Char('>');
        QVERIFY2(tables[index].valueOf(QStringRef(&buffer, 1, name.size())) == ++value, qPrintable(name));
    }
}

void CCatalogTokenizerTest::knowsNoNameOfAnotherTable()
{
    QFETCH(int, index);
    for (const Table &other : tables) {
        if (&other == &tables[index])
            continue;
        for (const QString &name : namesOf(other))
            QVERIFY2(tables[index].valueOf(QStringRef(&name)) == 0, qPrintable(name));
    }
}

void CCatalogTokenizerTest::comparesNamesExactly()
{
    QFETCH(int, index);
    const QStringList names = namesOf(tables[index]);
    for (const QString &name : names) {
        const QStringList variants = {
            name.toLower(),
            name + QLatin1Char(' '),
            QLatin1Char(' ') + name,
            name + QLatin1Char('X'),
            name.chopped(1),
            name + QChar(QChar::Null),
            name + QLatin1Char('_') + name,
        };
        for (const QString &variant : variants) {
            // Some variants are names themselves, such as "PARAMX".
            const int expected = names.indexOf(variant) + 1;
            QVERIFY2(tables[index].valueOf(QStringRef(&variant)) == expected, qPrintable(variant));
        }
    }
}

void CCatalogTokenizerTest::knowsNoEmptyName()
{
    QFETCH(int, index);
    const QString empty = QStringLiteral("");
    QCOMPARE(tables[index].valueOf(QStringRef(&empty)), 0);
    QCOMPARE(tables[index].valueOf(QStringRef()), 0);
}

void CCatalogTokenizerTest::takesBothSpellingsOfTheRoot_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("value");

    QTest::newRow("capitals") << "OVCAT" << 1;
    QTest::newRow("mixed case") << "OVCat" << 1;
    QTest::newRow("other mixed case") << "OvCat" << 0;
    QTest::newRow("mixed case and a blank") << "OVCat " << 0;
    QTest::newRow("beginning of the mixed case") << "OVCa" << 0;
}

void CCatalogTokenizerTest::takesBothSpellingsOfTheRoot()
{
    QFETCH(QString, name);
    QFETCH(int, value);
    QCOMPARE(static_cast<int>(Tokenizer::stringToCatalogToken(QStringRef(&name))), value);
}

QTEST_GUILESS_MAIN(CCatalogTokenizerTest)

#include "CCatalogTokenizerTest.moc"
