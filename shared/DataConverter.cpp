#include "shared/DataConverter.h"

#include <QLatin1String>

namespace Orvida::Shared {

namespace {

struct NamedDataType
{
    QLatin1String name;
    InputField::DataType type;
};

const NamedDataType namedDataTypes[] = {
    {QLatin1String("TXT"), InputField::Text},    {QLatin1String("INT"), InputField::Integer},
    {QLatin1String("DEC"), InputField::Decimal}, {QLatin1String("BOL"), InputField::Boolean},
    {QLatin1String("DAT"), InputField::Date},
};

} // namespace

InputField::DataType DataConverter::stringToDataType(const QStringRef &text)
{
    for (const NamedDataType &named : namedDataTypes) {
        if (text == named.name)
            return named.type;
    }
    return InputField::Undefined;
}

} // namespace Orvida::Shared
