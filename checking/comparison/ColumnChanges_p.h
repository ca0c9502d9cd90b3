// Looks for changes to columns as exchange files know them. For the comparison's own use.
#pragma once

#include "checking/comparison/EditionPair_p.h"

namespace Orvida::Checking {

void findColumnChanges(EditionPair &pair);

} // namespace Orvida::Checking
