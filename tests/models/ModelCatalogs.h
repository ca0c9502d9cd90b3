// Catalogs for the tests of the models: every file that there is, and trees made at random.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QString>
#include <QVector>

namespace Orvida::Tests {

struct NamedCatalog
{
    QString name;
    Catalogs::CatalogSptr catalog;
};

/// The sample, the catalogs of tests/catalogs (with loops, orphans, repeated keys, and some that do not
/// load), random trees whose children repeat, are null or lead back up, and none at all. Each call loads them
/// anew.
QVector<NamedCatalog> modelCatalogs();

/// A catalog in which "0" is below the root, "1" below "0" and so on, with these codes and captions.
Catalogs::CatalogSptr catalogWithLevels(int count);

/// A catalog whose root has `count` children "0", "1" and so on, with these codes and captions.
Catalogs::CatalogSptr catalogWithSiblings(int count);

} // namespace Orvida::Tests
