// Rules on scrambled texts. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

void findReadableForm(Check &check);
void findOddScrambledTexts(Check &check);
void findControlCharacters(Check &check);
void findScrambledTwice(Check &check);

} // namespace Orvida::Checking
