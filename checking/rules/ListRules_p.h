// Rules on value lists, and on what nothing uses. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findEntriesWithoutValue(Check &check);
void findRepeatedListValues(Check &check);
void findEntriesWithoutCaption(Check &check);
void findEntriesWithoutInternal(Check &check);
void findUnfitListValues(Check &check);
void findDifferentListTexts(Check &check);
void findDifferentListFlags(Check &check);
void findUnusedLists(Check &check);
void findUnusedParameters(Check &check);
void findUnusedColumns(Check &check);

} // namespace Orvida::Checking
