// Looks for changes to codes and to the tree. For the comparison's own use.
#pragma once

#include "checking/comparison/EditionPair_p.h"

namespace Orvida::Checking {

void findItemChanges(EditionPair &pair);

/// Whether the items have nothing but their code in common, so that there is nothing more to compare.
bool isReused(const EditionPair &pair, int oldItem, int newItem);

/// Whether things that are in both editions have another order: each is given by its old and new sort order.
/// Equal sort orders leave it open which comes first, and are no change.
bool isReordered(std::vector<std::pair<int, int>> orders);

} // namespace Orvida::Checking
