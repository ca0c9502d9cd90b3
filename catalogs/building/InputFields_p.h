// A step of loading: builds the input fields of all items. For the library's own use.
#pragma once

#include "catalogs/building/ListLookup_p.h"

namespace Orvida::Catalogs {

/// Adds to the item of every parameter extension one field per profile that has the extension's column. An
/// extension whose item is not in `catalog` is logged and skipped.
void buildInputFields(const CatalogXMLParser &parser, Catalog &catalog, const ListLookup &lists);

} // namespace Orvida::Catalogs
