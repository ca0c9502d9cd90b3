// The records of a catalog file that are no items: filled by the reader, turned into lists, fields and the
// profile by the loader. Plain values; each field names the element that it comes from, and a text
// whose element the file leaves out is null. A list class names the list entry of building, the one arrow
// from reading upwards.
#pragma once

#include "catalogs/building/CatalogListItem.h"
#include "shared/InputField.h"

#include <QList>
#include <QString>

namespace Orvida::Catalogs {

/// A `CATPRO` record: a profile.
struct CatalogParserProfile
{
    QString pk;          ///< PRO_PK
    QString format;      ///< PRO_Format
    QString exportType;  ///< PRO_ExportType
    QString description; ///< PRO_Description
    int sortOrder = 0;   ///< PRO_SortOrder
};

/// A `CPX` record: marks the profile `profileFk`.
struct CatalogParserProfileExtended
{
    QString pk;            ///< CPX_PK
    QString profileFk;     ///< CPX_Profile_FK
    bool isStart = false;  ///< CPX_IsStart
    bool isOrvida = false; ///< CPX_IsOrvida
};

/// A `COL` record: a column as one profile sees it. Limits and step stay text.
struct CatalogParserColumn
{
    QString profileFk;      ///< COL_Profile_FK
    QString listClassRef;   ///< COL_ListClass_REF
    QString columnId;       ///< COL_Column_ID, decoded
    QString exportId;       ///< COL_Export_ID
    QString caption;        ///< COL_Caption, decoded
    QString defaultValue;   ///< COL_Default
    QString inputFormat;    ///< COL_InputFmt
    QString displayFormat;  ///< COL_DisplayFmt
    QString unit;           ///< COL_Unit
    QString toolTip;        ///< COL_ToolTip
    QString rangeFrom;      ///< COL_RangeFrom
    QString rangeTo;        ///< COL_RangeTo
    QString steps;          ///< COL_Steps
    int length = 0;         ///< COL_Length
    int precision = 0;      ///< COL_Precision
    int sortOrder = 0;      ///< COL_SortOrder
    bool transport = false; ///< COL_Transport
    bool isVirtual = false; ///< COL_Virtual
    bool visible = false;   ///< COL_Visible
    bool readOnly = false;  ///< COL_ReadOnly
    bool mandatory = false; ///< COL_Mandatory
    /// COL_DataType
    Shared::InputField::DataType dataType = Shared::InputField::Undefined;
};

/// An `LC` record: a value list of one profile.
struct CatalogParserListClass
{
    QString pk;                   ///< LC_PK
    QString classId;              ///< LC_Class_ID, decoded
    QString profileFk;            ///< LC_Profile_FK
    QString caption;              ///< LC_Caption, decoded
    int typeFlags = 0;            ///< LC_TypeFlags
    QList<CatalogListItem> items; ///< Stays empty: entries are in the parser's list items.
};

/// A `LIST` record: an entry of the list class `classFk`.
struct CatalogParserListItem
{
    QString item;      ///< LIST_Item
    QString internal;  ///< LIST_Internal
    QString paramId;   ///< LIST_Param_ID
    QString classFk;   ///< LIST_Class_FK
    int sortOrder = 0; ///< LIST_SortOrder
    QString caption;   ///< LIST_Caption, decoded
};

/// A `PARAM` record: what a value is.
struct CatalogParserParameter
{
    QString pk;           ///< PARAM_PK
    QString id;           ///< PARAM_ID
    QString placeholder;  ///< PARAM_Placeholder
    QString caption;      ///< PARAM_Caption, decoded
    QString prefix;       ///< PARAM_Prefix, decoded
    QString suffix;       ///< PARAM_Suffix, decoded
    QString unit;         ///< PARAM_Unit
    int sortOrder = 0;    ///< PARAM_SortOrder
    int dataType = 0;     ///< PARAM_DataType, a number of `Shared::InputField::DataType`
    qint64 typeFlags = 0; ///< PARAM_TypeFlags
};

/// A `PARAMX` record: attaches a parameter to one code. Its own key is the key of its container.
struct CatalogParserParamExtended
{
    QString baseCodeFk;     ///< PX_BaseCode_FK
    QString charExtFk;      ///< PX_CharExt_FK
    QString paramFk;        ///< PX_Param_FK
    QString defaultValue;   ///< PX_Default
    QString inputFormat;    ///< PX_InputFmt
    QString displayFormat;  ///< PX_DisplayFmt
    QString columnId;       ///< PX_Column_ID
    QString listClassId;    ///< PX_ListClass_ID
    QString rangeFrom;      ///< PX_RangeFrom
    QString rangeTo;        ///< PX_RangeTo
    QString steps;          ///< PX_Steps
    int length = 0;         ///< PX_Length
    int precision = 0;      ///< PX_Precision
    int clockType = 0;      ///< PX_ClockType
    bool mandatory = false; ///< PX_Mandatory
};

} // namespace Orvida::Catalogs
