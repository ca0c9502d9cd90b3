// Rules on elements and texts: what a load passes over. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findUnknownRoot(Check &check);
void findNestedRoots(Check &check);
void findNoCodes(Check &check);
void findMisspeltRecords(Check &check);
void findUnknownRecords(Check &check);
void findWrappedRecords(Check &check);
void findNestedRecords(Check &check);
void findUnknownFields(Check &check);
void findFieldsOutsideRecords(Check &check);
void findNestedFields(Check &check);
void findRepeatedFields(Check &check);
void findStrayTexts(Check &check);
void findCutTexts(Check &check);
void findIgnoredAttributes(Check &check);
void findIgnoredFields(Check &check);
void findCatalogInfo(Check &check);
void findBadDirectives(Check &check);

} // namespace Orvida::Checking
