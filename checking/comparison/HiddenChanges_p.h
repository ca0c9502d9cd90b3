// Looks for changes that neither data nor hosts notice. For the comparison's own use.
#pragma once

#include "checking/comparison/EditionPair_p.h"

namespace Orvida::Checking {

/// To be called when all records that are the same in both editions are known.
void findHiddenChanges(EditionPair &pair);

} // namespace Orvida::Checking
