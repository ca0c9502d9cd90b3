// Rules on the keys of records. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findMissingKeys(Check &check);
void findBlankKeys(Check &check);
void findRepeatedItems(Check &check);
void findRepeatedParameters(Check &check);
void findRepeatedProfiles(Check &check);
void findRepeatedColumns(Check &check);
void findRepeatedListClasses(Check &check);
void findListClassesWithoutKey(Check &check);
void findSharedListKeys(Check &check);
void findRepeatedMarks(Check &check);

} // namespace Orvida::Checking
