// A catalog as a host's developer would read it without the library.
#pragma once

#include "catalogs/model/CatalogItem.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>

namespace Orvida::Benchmarks {

/// Parses the file `path` into a document tree and builds from it the linked tree of codes with the fields of
/// every profile, by id; empty when the file cannot be read. Lists and codes of defects are left out, in
/// favour of this way of reading.
QHash<QString, QSharedPointer<Catalogs::CatalogItem>> loadDomCatalog(const QString &path);

} // namespace Orvida::Benchmarks
