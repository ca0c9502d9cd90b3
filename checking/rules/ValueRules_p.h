// Rules on values: types, numbers, ranges, and what parameters, fields and columns say of each other. For the
// checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findBadBooleans(Check &check);
void findBadNumbers(Check &check);
void findBadParameterTypes(Check &check);
void findBadColumnTypes(Check &check);
void findColumnsWithoutVisible(Check &check);
void findHiddenMandatoryFields(Check &check);
void findDifferentColumnTypes(Check &check);
void findTypesUnlikeColumn(Check &check);
void findBadRanges(Check &check);
void findBadLengths(Check &check);
void findBadDefaults(Check &check);
void findDefaultsOutsideLists(Check &check);
void findRangesWiderThanColumn(Check &check);
void findColumnWishes(Check &check);
void findDifferentUnits(Check &check);
void findClocksWithoutWords(Check &check);
void findRepeatedColumnsOnCodes(Check &check);
void findExportIds(Check &check);

} // namespace Orvida::Checking
