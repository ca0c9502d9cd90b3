// A step of loading: chooses the catalog's current profile. For the library's own use.
#pragma once

#include "catalogs/model/CatalogProfile.h"

#include <QString>
#include <QVector>

namespace Orvida::Catalogs {

class CatalogXMLParser;

/// Key of the profile that a file's marks and sort orders choose; null when the file has no profile.
///
/// The profile that the first start mark names, else the one that the first application mark names, else
/// the one with the lowest sort order. A mark that names no profile of the file does not count.
QString resolveProfile(const CatalogXMLParser &parser);

/// The profiles of the file by ascending sort order, in exactly the order in which `resolveProfile` sees
/// them; each key once.
QVector<CatalogProfile> profilesInOrderOfChoice(const CatalogXMLParser &parser);

} // namespace Orvida::Catalogs
