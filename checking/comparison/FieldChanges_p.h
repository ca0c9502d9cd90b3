// Looks for changes to input fields. For the comparison's own use.
#pragma once

#include "checking/comparison/ColumnRelations_p.h"
#include "checking/comparison/UsedLists_p.h"

namespace Orvida::Checking {

/// Keeps in `lists` which lists the fields use in both editions.
void findFieldChanges(EditionPair &pair, ColumnRelations &columns, UsedLists &lists);

} // namespace Orvida::Checking
