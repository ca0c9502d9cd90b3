// Rules on the file as a whole: whether it can be read. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findReadingFault(Check &check);
void findSuspiciousEncoding(Check &check);
void findReplacementCharacters(Check &check);
void findDocumentType(Check &check);
void findUnresolvedEntities(Check &check);

} // namespace Orvida::Checking
