#include "shared/InputField.h"

namespace Orvida::Shared {

// Defined here so that the virtual table and the type information have one home, this library.
InputField::~InputField() = default;

} // namespace Orvida::Shared
