// A step of loading: builds the value lists and the continuous-defect codes. For the library's own use.
#pragma once

#include "shared/ListItem.h"

#include <QHash>
#include <QList>
#include <QString>

namespace Orvida::Catalogs {

class Catalog;
class CatalogXMLParser;

/// Entries of every list class, in the order in which they are offered: by profile key, then class id.
using ListLookup = QHash<QString, QHash<QString, QList<Shared::ListItem>>>;

/// Builds the lists of all profiles, and stores the continuous-defect codes of each in `catalog`.
///
/// Orders the parser's list items in place. Every list class gets its list, also an empty one; of two
/// classes with one profile and one id, the later counts.
ListLookup buildListLookup(CatalogXMLParser &parser, Catalog &catalog);

} // namespace Orvida::Catalogs
