// Catalogs that are the same as the library's, read by other XML parsers.
#pragma once

#include "catalogs/model/Catalog.h"

namespace Orvida::Benchmarks {

/// The catalog in the file `path`, built as CatalogLoader builds it, from a document that pugixml parses
/// whole; not valid when the file cannot be read.
Catalogs::CatalogSptr loadPugixmlCatalog(const QString &path);

/// The same from what libxml2 reports by its SAX2 interface.
Catalogs::CatalogSptr loadLibxml2SaxCatalog(const QString &path);

/// Whether `load` gives the catalog that CatalogLoader gives for the file `path`: items, tree, and the fields
/// and list entries of every profile.
bool isSameAsLoaded(Catalogs::CatalogSptr (*load)(const QString &), const QString &path);

} // namespace Orvida::Benchmarks
