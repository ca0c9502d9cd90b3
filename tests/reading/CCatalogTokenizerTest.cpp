// The vocabulary of catalog files.

#include "catalogs/reading/CCatalogTokenizer.h"

#include <QtTest>

using Tokenizer = CCatalogTokenizer;

namespace {

template <auto lookup>
int tokenOf(const QStringRef &name)
{
    return int(lookup(name));
}

// A table and its names, which have the tokens 1, 2, 3, ...
struct Table
{
    int (*lookup)(const QStringRef &);
    const char *names;
};

const Table tables[] = {
    {tokenOf<&Tokenizer::stringToCatalogToken>,
     "OVCAT CATALOG CATPRO CPX COL LC LIST CLASS BASECODE CHAREXT PARAM PARAMX"},
    {tokenOf<&Tokenizer::stringToCatalogInfoToken>,
     "CAT_PK CAT_Country CAT_Language CAT_ObjectType CAT_BaseType CAT_CustomType CAT_Version "
     "CAT_Description CAT_Publisher CAT_Copyright CAT_Style"},
    {tokenOf<&Tokenizer::stringToProfileToken>,
     "PRO_PK PRO_Format PRO_ExportType PRO_Description PRO_SortOrder"},
    {tokenOf<&Tokenizer::stringToProfileExtensionToken>, "CPX_PK CPX_Profile_FK CPX_IsStart CPX_IsOrvida"},
    {tokenOf<&Tokenizer::stringToColumnToken>,
     "COL_Profile_FK COL_Column_ID COL_Export_ID COL_Caption COL_Transport COL_Virtual COL_Visible "
     "COL_ReadOnly COL_Mandatory COL_DataType COL_Length COL_RangeFrom COL_RangeTo COL_Steps "
     "COL_Precision COL_Default COL_Unit COL_InputFmt COL_DisplayFmt COL_ListClass_REF COL_ToolTip "
     "COL_SortOrder"},
    {tokenOf<&Tokenizer::stringToListClassToken>, "LC_PK LC_Profile_FK LC_Class_ID LC_Caption LC_TypeFlags"},
    {tokenOf<&Tokenizer::stringToListItemToken>,
     "LIST_PK LIST_Class_FK LIST_Item LIST_Caption LIST_Internal LIST_SortOrder LIST_Param_ID"},
    {tokenOf<&Tokenizer::stringToCodeClassToken>,
     "CLASS_PK CLASS_SortOrder CLASS_Item CLASS_Remarks CLASS_ChildCaption CLASS_IsVirtual"},
    {tokenOf<&Tokenizer::stringToBaseCodeToken>,
     "BC_PK BC_SortOrder BC_Class_FK BC_Item BC_Remarks BC_Code BC_AltCode BC_Follower BC_ObsText "
     "BC_ChildCaption BC_CloseCode BC_AutoPicture BC_TypeFlags BC_Construction BC_IsVirtual"},
    {tokenOf<&Tokenizer::stringToCharacterExtensionToken>,
     "CE_PK CE_SortOrder CE_BaseCode_FK CE_CharExt_REF CE_Item CE_Remarks CE_Code CE_AltCode "
     "CE_Follower CE_ObsText CE_ChildCaption CE_CloseCode CE_AutoPicture CE_TypeFlags CE_Construction"},
    {tokenOf<&Tokenizer::stringToParameterToken>,
     "PARAM_PK PARAM_SortOrder PARAM_ID PARAM_DataType PARAM_Placeholder PARAM_Caption PARAM_Prefix "
     "PARAM_Suffix PARAM_Unit PARAM_TypeFlags"},
    {tokenOf<&Tokenizer::stringToParameterExtensionToken>,
     "PX_PK PX_BaseCode_FK PX_CharExt_FK PX_Param_FK PX_Mandatory PX_Length PX_RangeFrom PX_RangeTo "
     "PX_Steps PX_Precision PX_Default PX_InputFmt PX_DisplayFmt PX_ClockType PX_Column_ID "
     "PX_ListClass_ID"},
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
    void everyTableKnowsItsNamesOnly();
};

void CCatalogTokenizerTest::everyTableKnowsItsNamesOnly()
{
    QStringList spellings{QString()};
    for (const Table &table : tables) {
        for (const QString &name : namesOf(table))
            spellings += {name, name.toLower(), name.chopped(1), name + QLatin1Char(' ')};
    }
    for (const Table &table : tables) {
        const QStringList names = namesOf(table);
        for (const QString &spelling : qAsConst(spellings)) {
            const QString buffer = QLatin1Char('<') + spelling + QLatin1Char('>');
            const int token = table.lookup(QStringRef(&buffer, 1, spelling.size()));
            QVERIFY2(token == names.indexOf(spelling) + 1, qPrintable(spelling));
        }
    }

    // The root has two spellings.
    const QString roots = QStringLiteral("OVCat OvCat");
    QCOMPARE(Tokenizer::stringToCatalogToken(roots.leftRef(5)), Tokenizer::CatalogToken::OVCAT);
    QCOMPARE(Tokenizer::stringToCatalogToken(roots.rightRef(5)), Tokenizer::CatalogToken::Unknown);
}

QTEST_GUILESS_MAIN(CCatalogTokenizerTest)

#include "CCatalogTokenizerTest.moc"
