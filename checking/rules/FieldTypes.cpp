#include "checking/rules/FieldTypes_p.h"

#include "catalogs/reading/FieldConversion_p.h"

namespace Orvida::Checking {

Type parameterType(const Check &check, int parameter)
{
    if (parameter < 0)
        return Type::Undefined;
    const QString text =
        check.catalog.texts.string(check.catalog.value(parameter, ParameterToken::PARAM_DataType));
    return Type(Catalogs::toParameterType(QStringRef(&text)));
}

Type columnType(const Check &check, int column)
{
    const QString text = check.catalog.texts.string(check.catalog.value(column, ColumnToken::COL_DataType));
    return Catalogs::toColumnType(QStringRef(&text));
}

bool hasTypeAndColumn(const Check &check, const CatalogLinks::InputField &field)
{
    return parameterType(check, field.parameter) != Type::Undefined
           && !check.links.columns(field.column).isEmpty();
}

} // namespace Orvida::Checking
