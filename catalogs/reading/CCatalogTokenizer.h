// The vocabulary of a catalog file: turns element names into tokens, so that the reader never compares
// names as strings. Needs Qt Core only.
#pragma once

#include "catalogs/CatalogsExport.h"

#include <QHash>
#include <QStringRef>

#include <memory>

/// The token tables of a catalog file, one per context: root and section elements, the catalog
/// information, and the fields of each of the ten record kinds.
///
/// Every lookup takes an element's local name and gives its token in that one context, or `Unknown` (0)
/// for any other name, the empty one included. Names are compared exactly: letter case counts and nothing
/// is trimmed. A lookup allocates nothing. The tables are built when the library is loaded and only read
/// afterwards: any thread may look up at any time, without a lock.
class ORVIDA_CATALOGS_EXPORT CCatalogTokenizer
{
public:
    /// Tokens of the root and section elements; `OVCAT` stands for both spellings of the root.
    enum class CatalogToken {
        Unknown = 0,
        OVCAT = 1,
        CATALOG = 2,
        CATPRO = 3,
        CPX = 4,
        COL = 5,
        LC = 6,
        LIST = 7,
        CLASS = 8,
        BASECODE = 9,
        CHAREXT = 10,
        PARAM = 11,
        PARAMX = 12,
    };

    /// Tokens of the fields of `CATALOG`.
    enum class CatalogInfoToken {
        Unknown = 0,
        CAT_PK = 1,
        CAT_Country = 2,
        CAT_Language = 3,
        CAT_ObjectType = 4,
        CAT_BaseType = 5,
        CAT_CustomType = 6,
        CAT_Version = 7,
        CAT_Description = 8,
        CAT_Publisher = 9,
        CAT_Copyright = 10,
        CAT_Style = 11,
    };

    /// Tokens of the fields of `CATPRO`.
    enum class ProfileToken {
        Unknown = 0,
        PRO_PK = 1,
        PRO_Format = 2,
        PRO_ExportType = 3,
        PRO_Description = 4,
        PRO_SortOrder = 5,
    };

    /// Tokens of the fields of `CPX`.
    enum class ProfileExtensionToken {
        Unknown = 0,
        CPX_PK = 1,
        CPX_Profile_FK = 2,
        CPX_IsStart = 3,
        CPX_IsOrvida = 4,
    };

    /// Tokens of the fields of `COL`.
    enum class ColumnToken {
        Unknown = 0,
        COL_Profile_FK = 1,
        COL_Column_ID = 2,
        COL_Export_ID = 3,
        COL_Caption = 4,
        COL_Transport = 5,
        COL_Virtual = 6,
        COL_Visible = 7,
        COL_ReadOnly = 8,
        COL_Mandatory = 9,
        COL_DataType = 10,
        COL_Length = 11,
        COL_RangeFrom = 12,
        COL_RangeTo = 13,
        COL_Steps = 14,
        COL_Precision = 15,
        COL_Default = 16,
        COL_Unit = 17,
        COL_InputFmt = 18,
        COL_DisplayFmt = 19,
        COL_ListClass_REF = 20,
        COL_ToolTip = 21,
        COL_SortOrder = 22,
    };

    /// Tokens of the fields of `LC`.
    enum class ListClassToken {
        Unknown = 0,
        LC_PK = 1,
        LC_Profile_FK = 2,
        LC_Class_ID = 3,
        LC_Caption = 4,
        LC_TypeFlags = 5,
    };

    /// Tokens of the fields of `LIST`.
    enum class ListItemToken {
        Unknown = 0,
        LIST_PK = 1,
        LIST_Class_FK = 2,
        LIST_Item = 3,
        LIST_Caption = 4,
        LIST_Internal = 5,
        LIST_SortOrder = 6,
        LIST_Param_ID = 7,
    };

    /// Tokens of the fields of `CLASS`.
    enum class CodeClassToken {
        Unknown = 0,
        CLASS_PK = 1,
        CLASS_SortOrder = 2,
        CLASS_Item = 3,
        CLASS_Remarks = 4,
        CLASS_ChildCaption = 5,
        CLASS_IsVirtual = 6,
    };

    /// Tokens of the fields of `BASECODE`.
    enum class BaseCodeToken {
        Unknown = 0,
        BC_PK = 1,
        BC_SortOrder = 2,
        BC_Class_FK = 3,
        BC_Item = 4,
        BC_Remarks = 5,
        BC_Code = 6,
        BC_AltCode = 7,
        BC_Follower = 8,
        BC_ObsText = 9,
        BC_ChildCaption = 10,
        BC_CloseCode = 11,
        BC_AutoPicture = 12,
        BC_TypeFlags = 13,
        BC_Construction = 14,
        BC_IsVirtual = 15,
    };

    /// Tokens of the fields of `CHAREXT`.
    enum class CharacterExtensionToken {
        Unknown = 0,
        CE_PK = 1,
        CE_SortOrder = 2,
        CE_BaseCode_FK = 3,
        CE_CharExt_REF = 4,
        CE_Item = 5,
        CE_Remarks = 6,
        CE_Code = 7,
        CE_AltCode = 8,
        CE_Follower = 9,
        CE_ObsText = 10,
        CE_ChildCaption = 11,
        CE_CloseCode = 12,
        CE_AutoPicture = 13,
        CE_TypeFlags = 14,
        CE_Construction = 15,
    };

    /// Tokens of the fields of `PARAM`.
    enum class ParameterToken {
        Unknown = 0,
        PARAM_PK = 1,
        PARAM_SortOrder = 2,
        PARAM_ID = 3,
        PARAM_DataType = 4,
        PARAM_Placeholder = 5,
        PARAM_Caption = 6,
        PARAM_Prefix = 7,
        PARAM_Suffix = 8,
        PARAM_Unit = 9,
        PARAM_TypeFlags = 10,
    };

    /// Tokens of the fields of `PARAMX`.
    enum class ParameterExtensionToken {
        Unknown = 0,
        PX_PK = 1,
        PX_BaseCode_FK = 2,
        PX_CharExt_FK = 3,
        PX_Param_FK = 4,
        PX_Mandatory = 5,
        PX_Length = 6,
        PX_RangeFrom = 7,
        PX_RangeTo = 8,
        PX_Steps = 9,
        PX_Precision = 10,
        PX_Default = 11,
        PX_InputFmt = 12,
        PX_DisplayFmt = 13,
        PX_ClockType = 14,
        PX_Column_ID = 15,
        PX_ListClass_ID = 16,
    };

    /// Builds the tables. The library makes the one instance that the lookups read; another one would
    /// only be a copy of it.
    CCatalogTokenizer();
    ~CCatalogTokenizer();
    Q_DISABLE_COPY(CCatalogTokenizer)

    static CatalogToken stringToCatalogToken(const QStringRef &name);
    static CatalogInfoToken stringToCatalogInfoToken(const QStringRef &name);
    static ProfileToken stringToProfileToken(const QStringRef &name);
    static ProfileExtensionToken stringToProfileExtensionToken(const QStringRef &name);
    static ColumnToken stringToColumnToken(const QStringRef &name);
    static ListClassToken stringToListClassToken(const QStringRef &name);
    static ListItemToken stringToListItemToken(const QStringRef &name);
    static CodeClassToken stringToCodeClassToken(const QStringRef &name);
    static BaseCodeToken stringToBaseCodeToken(const QStringRef &name);
    static CharacterExtensionToken stringToCharacterExtensionToken(const QStringRef &name);
    static ParameterToken stringToParameterToken(const QStringRef &name);
    static ParameterExtensionToken stringToParameterExtensionToken(const QStringRef &name);

private:
    // The keys view name constants of the library.
    template <typename Token>
    using Table = std::unique_ptr<QHash<QStringRef, Token>>;

    const Table<CatalogToken> m_catalogTokens;
    const Table<CatalogInfoToken> m_catalogInfoTokens;
    const Table<ProfileToken> m_profileTokens;
    const Table<ProfileExtensionToken> m_profileExtensionTokens;
    const Table<ColumnToken> m_columnTokens;
    const Table<ListClassToken> m_listClassTokens;
    const Table<ListItemToken> m_listItemTokens;
    const Table<CodeClassToken> m_codeClassTokens;
    const Table<BaseCodeToken> m_baseCodeTokens;
    const Table<CharacterExtensionToken> m_characterExtensionTokens;
    const Table<ParameterToken> m_parameterTokens;
    const Table<ParameterExtensionToken> m_parameterExtensionTokens;

    static const CCatalogTokenizer m_tokenizer;
};
