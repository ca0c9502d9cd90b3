#include "catalogs/reading/CCatalogTokenizer.h"

#include "catalogs/reading/TokenTable_p.h"

using Orvida::Catalogs::TokenTable;

namespace {

// The name constants stand before the tokenizer in this file, because its tables point to them:
// they are made before it and destroyed after it.
// clang-format off

// One row per name: the spelling in the file is the spelling of the enumerator.
#define ORVIDA_NAMED(Enum, name) {QStringLiteral(#name), CCatalogTokenizer::Enum::name}

const TokenTable<CCatalogTokenizer::CatalogToken>::Row catalogTokenNames[] = {
    ORVIDA_NAMED(CatalogToken, OVCAT),
    {QStringLiteral("OVCat"), CCatalogTokenizer::CatalogToken::OVCAT},
    ORVIDA_NAMED(CatalogToken, CATALOG),
    ORVIDA_NAMED(CatalogToken, CATPRO),
    ORVIDA_NAMED(CatalogToken, CPX),
    ORVIDA_NAMED(CatalogToken, COL),
    ORVIDA_NAMED(CatalogToken, LC),
    ORVIDA_NAMED(CatalogToken, LIST),
    ORVIDA_NAMED(CatalogToken, CLASS),
    ORVIDA_NAMED(CatalogToken, BASECODE),
    ORVIDA_NAMED(CatalogToken, CHAREXT),
    ORVIDA_NAMED(CatalogToken, PARAM),
    ORVIDA_NAMED(CatalogToken, PARAMX),
};

const TokenTable<CCatalogTokenizer::CatalogInfoToken>::Row catalogInfoTokenNames[] = {
    ORVIDA_NAMED(CatalogInfoToken, CAT_PK),
    ORVIDA_NAMED(CatalogInfoToken, CAT_Country),
    ORVIDA_NAMED(CatalogInfoToken, CAT_Language),
    ORVIDA_NAMED(CatalogInfoToken, CAT_ObjectType),
    ORVIDA_NAMED(CatalogInfoToken, CAT_BaseType),
    ORVIDA_NAMED(CatalogInfoToken, CAT_CustomType),
    ORVIDA_NAMED(CatalogInfoToken, CAT_Version),
    ORVIDA_NAMED(CatalogInfoToken, CAT_Description),
    ORVIDA_NAMED(CatalogInfoToken, CAT_Publisher),
    ORVIDA_NAMED(CatalogInfoToken, CAT_Copyright),
    ORVIDA_NAMED(CatalogInfoToken, CAT_Style),
};

const TokenTable<CCatalogTokenizer::ProfileToken>::Row profileTokenNames[] = {
    ORVIDA_NAMED(ProfileToken, PRO_PK),
    ORVIDA_NAMED(ProfileToken, PRO_Format),
    ORVIDA_NAMED(ProfileToken, PRO_ExportType),
    ORVIDA_NAMED(ProfileToken, PRO_Description),
    ORVIDA_NAMED(ProfileToken, PRO_SortOrder),
};

const TokenTable<CCatalogTokenizer::ProfileExtensionToken>::Row profileExtensionTokenNames[] = {
    ORVIDA_NAMED(ProfileExtensionToken, CPX_PK),
    ORVIDA_NAMED(ProfileExtensionToken, CPX_Profile_FK),
    ORVIDA_NAMED(ProfileExtensionToken, CPX_IsStart),
    ORVIDA_NAMED(ProfileExtensionToken, CPX_IsOrvida),
};

const TokenTable<CCatalogTokenizer::ColumnToken>::Row columnTokenNames[] = {
    ORVIDA_NAMED(ColumnToken, COL_Profile_FK),
    ORVIDA_NAMED(ColumnToken, COL_Column_ID),
    ORVIDA_NAMED(ColumnToken, COL_Export_ID),
    ORVIDA_NAMED(ColumnToken, COL_Caption),
    ORVIDA_NAMED(ColumnToken, COL_Transport),
    ORVIDA_NAMED(ColumnToken, COL_Virtual),
    ORVIDA_NAMED(ColumnToken, COL_Visible),
    ORVIDA_NAMED(ColumnToken, COL_ReadOnly),
    ORVIDA_NAMED(ColumnToken, COL_Mandatory),
    ORVIDA_NAMED(ColumnToken, COL_DataType),
    ORVIDA_NAMED(ColumnToken, COL_Length),
    ORVIDA_NAMED(ColumnToken, COL_RangeFrom),
    ORVIDA_NAMED(ColumnToken, COL_RangeTo),
    ORVIDA_NAMED(ColumnToken, COL_Steps),
    ORVIDA_NAMED(ColumnToken, COL_Precision),
    ORVIDA_NAMED(ColumnToken, COL_Default),
    ORVIDA_NAMED(ColumnToken, COL_Unit),
    ORVIDA_NAMED(ColumnToken, COL_InputFmt),
    ORVIDA_NAMED(ColumnToken, COL_DisplayFmt),
    ORVIDA_NAMED(ColumnToken, COL_ListClass_REF),
    ORVIDA_NAMED(ColumnToken, COL_ToolTip),
    ORVIDA_NAMED(ColumnToken, COL_SortOrder),
};

const TokenTable<CCatalogTokenizer::ListClassToken>::Row listClassTokenNames[] = {
    ORVIDA_NAMED(ListClassToken, LC_PK),
    ORVIDA_NAMED(ListClassToken, LC_Profile_FK),
    ORVIDA_NAMED(ListClassToken, LC_Class_ID),
    ORVIDA_NAMED(ListClassToken, LC_Caption),
    ORVIDA_NAMED(ListClassToken, LC_TypeFlags),
};

const TokenTable<CCatalogTokenizer::ListItemToken>::Row listItemTokenNames[] = {
    ORVIDA_NAMED(ListItemToken, LIST_PK),
    ORVIDA_NAMED(ListItemToken, LIST_Class_FK),
    ORVIDA_NAMED(ListItemToken, LIST_Item),
    ORVIDA_NAMED(ListItemToken, LIST_Caption),
    ORVIDA_NAMED(ListItemToken, LIST_Internal),
    ORVIDA_NAMED(ListItemToken, LIST_SortOrder),
    ORVIDA_NAMED(ListItemToken, LIST_Param_ID),
};

const TokenTable<CCatalogTokenizer::CodeClassToken>::Row codeClassTokenNames[] = {
    ORVIDA_NAMED(CodeClassToken, CLASS_PK),
    ORVIDA_NAMED(CodeClassToken, CLASS_SortOrder),
    ORVIDA_NAMED(CodeClassToken, CLASS_Item),
    ORVIDA_NAMED(CodeClassToken, CLASS_Remarks),
    ORVIDA_NAMED(CodeClassToken, CLASS_ChildCaption),
    ORVIDA_NAMED(CodeClassToken, CLASS_IsVirtual),
};

const TokenTable<CCatalogTokenizer::BaseCodeToken>::Row baseCodeTokenNames[] = {
    ORVIDA_NAMED(BaseCodeToken, BC_PK),
    ORVIDA_NAMED(BaseCodeToken, BC_SortOrder),
    ORVIDA_NAMED(BaseCodeToken, BC_Class_FK),
    ORVIDA_NAMED(BaseCodeToken, BC_Item),
    ORVIDA_NAMED(BaseCodeToken, BC_Remarks),
    ORVIDA_NAMED(BaseCodeToken, BC_Code),
    ORVIDA_NAMED(BaseCodeToken, BC_AltCode),
    ORVIDA_NAMED(BaseCodeToken, BC_Follower),
    ORVIDA_NAMED(BaseCodeToken, BC_ObsText),
    ORVIDA_NAMED(BaseCodeToken, BC_ChildCaption),
    ORVIDA_NAMED(BaseCodeToken, BC_CloseCode),
    ORVIDA_NAMED(BaseCodeToken, BC_AutoPicture),
    ORVIDA_NAMED(BaseCodeToken, BC_TypeFlags),
    ORVIDA_NAMED(BaseCodeToken, BC_Construction),
    ORVIDA_NAMED(BaseCodeToken, BC_IsVirtual),
};

const TokenTable<CCatalogTokenizer::CharacterExtensionToken>::Row characterExtensionTokenNames[] = {
    ORVIDA_NAMED(CharacterExtensionToken, CE_PK),
    ORVIDA_NAMED(CharacterExtensionToken, CE_SortOrder),
    ORVIDA_NAMED(CharacterExtensionToken, CE_BaseCode_FK),
    ORVIDA_NAMED(CharacterExtensionToken, CE_CharExt_REF),
    ORVIDA_NAMED(CharacterExtensionToken, CE_Item),
    ORVIDA_NAMED(CharacterExtensionToken, CE_Remarks),
    ORVIDA_NAMED(CharacterExtensionToken, CE_Code),
    ORVIDA_NAMED(CharacterExtensionToken, CE_AltCode),
    ORVIDA_NAMED(CharacterExtensionToken, CE_Follower),
    ORVIDA_NAMED(CharacterExtensionToken, CE_ObsText),
    ORVIDA_NAMED(CharacterExtensionToken, CE_ChildCaption),
    ORVIDA_NAMED(CharacterExtensionToken, CE_CloseCode),
    ORVIDA_NAMED(CharacterExtensionToken, CE_AutoPicture),
    ORVIDA_NAMED(CharacterExtensionToken, CE_TypeFlags),
    ORVIDA_NAMED(CharacterExtensionToken, CE_Construction),
};

const TokenTable<CCatalogTokenizer::ParameterToken>::Row parameterTokenNames[] = {
    ORVIDA_NAMED(ParameterToken, PARAM_PK),
    ORVIDA_NAMED(ParameterToken, PARAM_SortOrder),
    ORVIDA_NAMED(ParameterToken, PARAM_ID),
    ORVIDA_NAMED(ParameterToken, PARAM_DataType),
    ORVIDA_NAMED(ParameterToken, PARAM_Placeholder),
    ORVIDA_NAMED(ParameterToken, PARAM_Caption),
    ORVIDA_NAMED(ParameterToken, PARAM_Prefix),
    ORVIDA_NAMED(ParameterToken, PARAM_Suffix),
    ORVIDA_NAMED(ParameterToken, PARAM_Unit),
    ORVIDA_NAMED(ParameterToken, PARAM_TypeFlags),
};

const TokenTable<CCatalogTokenizer::ParameterExtensionToken>::Row parameterExtensionTokenNames[] = {
    ORVIDA_NAMED(ParameterExtensionToken, PX_PK),
    ORVIDA_NAMED(ParameterExtensionToken, PX_BaseCode_FK),
    ORVIDA_NAMED(ParameterExtensionToken, PX_CharExt_FK),
    ORVIDA_NAMED(ParameterExtensionToken, PX_Param_FK),
    ORVIDA_NAMED(ParameterExtensionToken, PX_Mandatory),
    ORVIDA_NAMED(ParameterExtensionToken, PX_Length),
    ORVIDA_NAMED(ParameterExtensionToken, PX_RangeFrom),
    ORVIDA_NAMED(ParameterExtensionToken, PX_RangeTo),
    ORVIDA_NAMED(ParameterExtensionToken, PX_Steps),
    ORVIDA_NAMED(ParameterExtensionToken, PX_Precision),
    ORVIDA_NAMED(ParameterExtensionToken, PX_Default),
    ORVIDA_NAMED(ParameterExtensionToken, PX_InputFmt),
    ORVIDA_NAMED(ParameterExtensionToken, PX_DisplayFmt),
    ORVIDA_NAMED(ParameterExtensionToken, PX_ClockType),
    ORVIDA_NAMED(ParameterExtensionToken, PX_Column_ID),
    ORVIDA_NAMED(ParameterExtensionToken, PX_ListClass_ID),
};

#undef ORVIDA_NAMED

// clang-format on

} // namespace

const CCatalogTokenizer CCatalogTokenizer::m_tokenizer;

CCatalogTokenizer::CCatalogTokenizer()
    : m_catalogTokens(std::make_unique<TokenTable<CatalogToken>>(catalogTokenNames)),
      m_catalogInfoTokens(std::make_unique<TokenTable<CatalogInfoToken>>(catalogInfoTokenNames)),
      m_profileTokens(std::make_unique<TokenTable<ProfileToken>>(profileTokenNames)),
      m_profileExtensionTokens(
          std::make_unique<TokenTable<ProfileExtensionToken>>(profileExtensionTokenNames)),
      m_columnTokens(std::make_unique<TokenTable<ColumnToken>>(columnTokenNames)),
      m_listClassTokens(std::make_unique<TokenTable<ListClassToken>>(listClassTokenNames)),
      m_listItemTokens(std::make_unique<TokenTable<ListItemToken>>(listItemTokenNames)),
      m_codeClassTokens(std::make_unique<TokenTable<CodeClassToken>>(codeClassTokenNames)),
      m_baseCodeTokens(std::make_unique<TokenTable<BaseCodeToken>>(baseCodeTokenNames)),
      m_characterExtensionTokens(
          std::make_unique<TokenTable<CharacterExtensionToken>>(characterExtensionTokenNames)),
      m_parameterTokens(std::make_unique<TokenTable<ParameterToken>>(parameterTokenNames)),
      m_parameterExtensionTokens(
          std::make_unique<TokenTable<ParameterExtensionToken>>(parameterExtensionTokenNames))
{
}

CCatalogTokenizer::~CCatalogTokenizer() = default;

CCatalogTokenizer::CatalogToken CCatalogTokenizer::stringToCatalogToken(const QStringRef &name)
{
    return m_tokenizer.m_catalogTokens->value(name);
}

CCatalogTokenizer::CatalogInfoToken CCatalogTokenizer::stringToCatalogInfoToken(const QStringRef &name)
{
    return m_tokenizer.m_catalogInfoTokens->value(name);
}

CCatalogTokenizer::ProfileToken CCatalogTokenizer::stringToProfileToken(const QStringRef &name)
{
    return m_tokenizer.m_profileTokens->value(name);
}

CCatalogTokenizer::ProfileExtensionToken
CCatalogTokenizer::stringToProfileExtensionToken(const QStringRef &name)
{
    return m_tokenizer.m_profileExtensionTokens->value(name);
}

CCatalogTokenizer::ColumnToken CCatalogTokenizer::stringToColumnToken(const QStringRef &name)
{
    return m_tokenizer.m_columnTokens->value(name);
}

CCatalogTokenizer::ListClassToken CCatalogTokenizer::stringToListClassToken(const QStringRef &name)
{
    return m_tokenizer.m_listClassTokens->value(name);
}

CCatalogTokenizer::ListItemToken CCatalogTokenizer::stringToListItemToken(const QStringRef &name)
{
    return m_tokenizer.m_listItemTokens->value(name);
}

CCatalogTokenizer::CodeClassToken CCatalogTokenizer::stringToCodeClassToken(const QStringRef &name)
{
    return m_tokenizer.m_codeClassTokens->value(name);
}

CCatalogTokenizer::BaseCodeToken CCatalogTokenizer::stringToBaseCodeToken(const QStringRef &name)
{
    return m_tokenizer.m_baseCodeTokens->value(name);
}

CCatalogTokenizer::CharacterExtensionToken
CCatalogTokenizer::stringToCharacterExtensionToken(const QStringRef &name)
{
    return m_tokenizer.m_characterExtensionTokens->value(name);
}

CCatalogTokenizer::ParameterToken CCatalogTokenizer::stringToParameterToken(const QStringRef &name)
{
    return m_tokenizer.m_parameterTokens->value(name);
}

CCatalogTokenizer::ParameterExtensionToken
CCatalogTokenizer::stringToParameterExtensionToken(const QStringRef &name)
{
    return m_tokenizer.m_parameterExtensionTokens->value(name);
}
