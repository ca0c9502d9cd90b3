// A step of loading: builds the input fields of all items. For the library's own use.
#pragma once

#include "catalogs/building/ListLookup_p.h"

namespace Orvida::Catalogs {

/// Fills one field per parameter extension and adds it to the extension's item, for all profiles that have
/// the extension's column. An extension whose item is not in `catalog` is logged and passed over.
void buildInputFields(const CatalogXMLParser &parser, Catalog &catalog, const ListLookup &lists);

} // namespace Orvida::Catalogs
