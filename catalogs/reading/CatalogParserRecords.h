// The records of a catalog file that are no items: filled by the reader, turned into lists, fields and the
// profile by the loader. Plain values. A list class names the list entry of building, the one arrow from
// reading upwards.
#pragma once

#include "catalogs/building/CatalogListItem.h"
#include "shared/InputField.h"

#include <QList>
#include <QString>

namespace Orvida::Catalogs {

/// A `CATPRO` record: a profile.
struct CatalogParserProfile
{
    QString pk;
    QString format;
    QString exportType;
    QString description;
    int sortOrder = 0;
};

/// A `CPX` record: marks the profile `profileFk`.
struct CatalogParserProfileExtended
{
    QString pk;
    QString profileFk;
    bool isStart = false;
    bool isOrvida = false;
};

/// A `COL` record: a column as one profile sees it. Limits and step stay text.
struct CatalogParserColumn
{
    QString profileFk;
    QString listClassRef;
    QString columnId;
    QString exportId;
    QString caption;
    QString defaultValue;
    QString inputFormat;
    QString displayFormat;
    QString unit;
    QString toolTip;
    QString rangeFrom;
    QString rangeTo;
    QString steps;
    int length = 0;
    int precision = 0;
    int sortOrder = 0;
    bool transport = false;
    bool isVirtual = false;
    bool visible = false;
    bool readOnly = false;
    bool mandatory = false;
    Shared::InputField::DataType dataType = Shared::InputField::Undefined;
};

/// An `LC` record: a value list of one profile.
struct CatalogParserListClass
{
    QString pk;
    QString classId;
    QString profileFk;
    QString caption;
    int typeFlags = 0;
    QList<CatalogListItem> items; ///< Stays empty: entries lie in the parser's list items.
};

/// A `LIST` record: an entry of the list class `classFk`.
struct CatalogParserListItem
{
    QString item;
    QString internal;
    QString paramId;
    QString classFk;
    int sortOrder = 0;
    QString caption;
};

/// A `PARAM` record: what a value is.
struct CatalogParserParameter
{
    QString pk;
    QString id;
    QString placeholder;
    QString caption;
    QString prefix;
    QString suffix;
    QString unit;
    int sortOrder = 0;
    int dataType = 0; ///< A number of `Shared::InputField::DataType`.
    qint64 typeFlags = 0;
};

/// A `PARAMX` record: attaches a parameter to one code. Its own key is the key of its container.
struct CatalogParserParamExtended
{
    QString baseCodeFk;
    QString charExtFk;
    QString paramFk;
    QString defaultValue;
    QString inputFormat;
    QString displayFormat;
    QString columnId;
    QString listClassId;
    QString rangeFrom;
    QString rangeTo;
    QString steps;
    int length = 0;
    int precision = 0;
    int clockType = 0;
    bool mandatory = false;
};

} // namespace Orvida::Catalogs
