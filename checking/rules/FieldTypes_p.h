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

/// Whether a load builds the input field with all that belongs to it: its code, its parameter with a type,
/// its column. Where something is missing, that is reported, and not what follows from it.
bool isComplete(const Check &check, const CatalogLinks::InputField &field);

} // namespace Orvida::Checking
