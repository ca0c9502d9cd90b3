#include "shared/InputField.h"

namespace Orvida::Shared {

// Defined here so that the virtual table and the type information have one home, this library.
InputField::InputField() = default;
InputField::InputField(const InputField &other) = default;
InputField::InputField(InputField &&other) noexcept = default;
InputField &InputField::operator=(const InputField &other) = default;
InputField &InputField::operator=(InputField &&other) noexcept = default;
InputField::~InputField() = default;

} // namespace Orvida::Shared
