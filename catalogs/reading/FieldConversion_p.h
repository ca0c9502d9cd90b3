// Converts the text of a field to numbers, flags and types. For the reader's own use.
#pragma once

#include "catalogs/model/CatalogItem.h"
#include "shared/DataConverter.h"
#include "shared/InputField.h"

#include <QLatin1String>
#include <QStringRef>

namespace Orvida::Catalogs {

inline int toInt(const QStringRef &text, bool *isNumber = nullptr)
{
    return text.toInt(isNumber);
}

inline qint64 toInt64(const QStringRef &text, bool *isNumber = nullptr)
{
    return text.toLongLong(isNumber);
}

inline bool toBool(const QStringRef &text)
{
    return Shared::DataConverter::stringToBool(text);
}

/// What toBool() gives, without the log message that the host writes for a text that is no boolean.
inline bool isTrue(const QStringRef &text)
{
    return text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

inline bool isBool(const QStringRef &text)
{
    return isTrue(text) || text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0;
}

inline QFlags<CatalogItem::TypeFlag> toTypeFlags(const QStringRef &text)
{
    return QFlag(toInt(text));
}

/// The names for the types of columns are the host's to read; only the numbers are the same.
inline Shared::InputField::DataType toColumnType(const QStringRef &text)
{
    return Shared::DataConverter::stringToDataType(text);
}

/// The format's own names for the types of parameters.
inline int toParameterType(const QStringRef &text)
{
    struct NamedType
    {
        QLatin1String name;
        Shared::InputField::DataType type;
    };
    static const NamedType namedTypes[] = {
        {QLatin1String("TXT"), Shared::InputField::Text},
        {QLatin1String("INT"), Shared::InputField::Integer},
        {QLatin1String("DEC"), Shared::InputField::Decimal},
        {QLatin1String("BOL"), Shared::InputField::Boolean},
        {QLatin1String("DAT"), Shared::InputField::Date},
    };
    for (const NamedType &named : namedTypes) {
        if (text == named.name)
            return named.type;
    }
    return Shared::InputField::Undefined;
}

} // namespace Orvida::Catalogs
