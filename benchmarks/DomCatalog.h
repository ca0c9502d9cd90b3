// A catalog as a host would read it without the library.
#pragma once

#include "catalogs/model/CatalogItem.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>

namespace Orvida::Benchmarks {

/// Parses the file `path` into a document tree and builds the linked tree of codes from it, with the fields
/// of every profile, by id; empty if the file cannot be read. Lists and defect codes are left out, which
/// makes this way look faster than it is.
QHash<QString, QSharedPointer<Catalogs::CatalogItem>> loadDomCatalog(const QString &path);

} // namespace Orvida::Benchmarks
