// Rules on references between records. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findUnknownParents(Check &check);
void findItemsOfFields(Check &check);
void findOtherKinds(Check &check);
void findParametersOfFields(Check &check);
void findColumnsOfFields(Check &check);
void findColumnsMissingInProfiles(Check &check);
void findListsOfFields(Check &check);
void findListsMissingInProfiles(Check &check);
void findEmptyLists(Check &check);
void findUnknownListClasses(Check &check);
void findUnknownProfiles(Check &check);
void findUnknownEntryParameters(Check &check);
void findUnknownColumnLists(Check &check);
void findUnknownCodes(Check &check);

} // namespace Orvida::Checking
