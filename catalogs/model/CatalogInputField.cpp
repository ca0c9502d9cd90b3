#include "catalogs/model/CatalogInputField.h"

namespace Orvida::Catalogs {

// Defined here so that the virtual table and the type information have one home, this library.
CatalogInputField::CatalogInputField() = default;
CatalogInputField::CatalogInputField(const CatalogInputField &other) = default;
CatalogInputField::CatalogInputField(CatalogInputField &&other) noexcept = default;
CatalogInputField &CatalogInputField::operator=(const CatalogInputField &other) = default;
CatalogInputField &CatalogInputField::operator=(CatalogInputField &&other) noexcept = default;
CatalogInputField::~CatalogInputField() = default;

} // namespace Orvida::Catalogs
