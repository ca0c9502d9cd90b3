// Visits all of a catalog as a host may, for tests that do not know what is in it.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QStringList>

namespace Orvida::Tests {

/// Reads everything in `catalog` that a host can reach: items, children, codes, and for each of `profiles`
/// the continuous-defect codes and the fields with their list entries. Afterwards the first profile is the
/// current one. Describes the first contradiction; empty for a consistent catalog.
QString faultOf(Catalogs::Catalog &catalog, const QStringList &profiles);

} // namespace Orvida::Tests
