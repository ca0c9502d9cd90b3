// Turns one catalog file into one catalog.
#pragma once

#include "catalogs/CatalogsExport.h"
#include "catalogs/model/Catalog.h"

#include <QString>

namespace Orvida::Catalogs {

/// Loads a catalog without the manager and its cache. Holds nothing; made for one call.
class ORVIDA_CATALOGS_EXPORT CatalogLoader
{
public:
    /// Loads the file `filePath` into a new catalog with the identifier `catalogId`, which may be any text.
    ///
    /// Never gives an empty pointer. The status is `Loaded`, or `LoadFailed` when the file cannot be opened
    /// (an empty path, a folder), is not well-formed XML, or has a record without its keys; the catalog then
    /// holds what was read until there, unlinked, and the reason in `failure()`. The caller owns the catalog
    /// and alone sees it. Any thread may call it. When memory runs out, `std::bad_alloc` propagates and
    /// nothing leaks.
    CatalogSptr loadCatalog(const QString &filePath, const QString &catalogId);
};

} // namespace Orvida::Catalogs
