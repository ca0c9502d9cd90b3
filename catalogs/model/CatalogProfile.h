// A profile that a catalog offers. A plain value.
#pragma once

#include <QString>

namespace Orvida::Catalogs {

/// A variant of a catalog, under which items have other fields and lists.
struct CatalogProfile
{
    QString key;         ///< What `Catalog::setProfile` takes.
    QString description; ///< What people call it; may be empty.
};

} // namespace Orvida::Catalogs
