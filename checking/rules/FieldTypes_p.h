// Types of input fields and columns. For the checker's own use.
#pragma once

#include "checking/reading/CatalogLinks_p.h"
#include "checking/rules/Check_p.h"

#include "shared/InputField.h"

namespace Orvida::Checking {

using Type = Shared::InputField::DataType;

/// `Undefined` for a missing parameter, and for one without a known type.
Type parameterType(const Check &check, int parameter);
/// `Undefined` for a definition that a load drops.
Type columnType(const Check &check, int column);

inline bool isNumeric(Type type)
{
    return type == Type::Integer || type == Type::Decimal;
}

/// Whether the type and the column of an input field are known. Otherwise that is reported, and nothing of
/// its range, default and list.
bool hasTypeAndColumn(const Check &check, const CatalogLinks::InputField &field);
/// Whether, besides, its code is known.
inline bool isComplete(const Check &check, const CatalogLinks::InputField &field)
{
    return field.item >= 0 && hasTypeAndColumn(check, field);
}

} // namespace Orvida::Checking
