#include "catalogs/model/CatalogInputField.h"

namespace Orvida::Catalogs {

// Defined here so that the virtual table and the type information have one home, this library.
CatalogInputField::~CatalogInputField() = default;

} // namespace Orvida::Catalogs
