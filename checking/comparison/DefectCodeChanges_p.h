// Looks for changes to continuous-defect codes. For the comparison's own use.
#pragma once

#include "checking/comparison/EditionPair_p.h"

namespace Orvida::Checking {

void findDefectCodeChanges(EditionPair &pair);

} // namespace Orvida::Checking
