// Looks for changes to the catalog as a whole and to its profiles. For the comparison's own use.
#pragma once

#include "checking/comparison/EditionPair_p.h"

namespace Orvida::Checking {

void findProfileChanges(EditionPair &pair);
/// To be called when all other changes are there: the version must have changed with them.
void findCatalogChanges(EditionPair &pair);

} // namespace Orvida::Checking
