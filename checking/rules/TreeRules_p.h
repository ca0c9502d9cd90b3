// Rules on the tree of codes, and on orders. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findParentLoops(Check &check);
void findMissingParents(Check &check);
void findConflictingParents(Check &check);
void findRepeatedCodes(Check &check);
void findEqualSortOrders(Check &check);
void findEqualFieldOrders(Check &check);
void findEqualEntryOrders(Check &check);
void findEmptyClasses(Check &check);

} // namespace Orvida::Checking
