// The same catalogs as the library's, read with other XML parsers.
#pragma once

#include "catalogs/model/Catalog.h"

namespace Orvida::Benchmarks {

/// The catalog in the file `path`, built as CatalogLoader builds it, from a document tree of pugixml; not
/// valid if the file cannot be read.
Catalogs::CatalogSptr loadPugixmlCatalog(const QString &path);

/// The same from the events of libxml2's SAX2 interface.
Catalogs::CatalogSptr loadLibxml2SaxCatalog(const QString &path);

/// Whether `load` and CatalogLoader give equal catalogs for the file `path`: items, tree, and the fields and
/// list entries of every profile.
bool isSameAsLoaded(Catalogs::CatalogSptr (*load)(const QString &), const QString &path);

} // namespace Orvida::Benchmarks
