// The order of records in a file, for steps of loading whose results would otherwise depend on a hash seed.
// For the library's own use.
#pragma once

#include <QString>
#include <QVector>

namespace Orvida::Catalogs {

class CatalogXMLParser;

/// The keys of the parameter extensions that `parser` has read, in the order in which each first came in the
/// file. Fields of equal sort order are added in this order.
const QVector<QString> &parameterExtensionsInFileOrder(const CatalogXMLParser &parser);

} // namespace Orvida::Catalogs
