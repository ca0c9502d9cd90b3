// Walks over a catalog as a host may, for tests that do not know what is in it.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QStringList>

namespace Orvida::Tests {

/// Reads everything of `catalog` that a host can reach: items, children, codes, and under each of `profiles`
/// the continuous-defect codes and the fields with their list entries. The first of the profiles is the
/// current one in the end. Gives the first contradiction that it meets, in words; nothing for a sound
/// catalog.
QString faultOf(Catalogs::Catalog &catalog, const QStringList &profiles);

} // namespace Orvida::Tests
