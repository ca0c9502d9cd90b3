// Rules on captions, codes and observation texts. For the checker's own use.
#pragma once

#include <QStringView>

#include <vector>

namespace Orvida::Checking {

class Check;

/// The placeholders in a text.
std::vector<QStringView> placeholdersIn(QStringView text);

void findMissingCaptions(Check &check);
void findPaddedCaptions(Check &check);
void findEqualCaptions(Check &check);
void findMissingCodes(Check &check);
void findMissingObservationTexts(Check &check);
void findUnknownPlaceholders(Check &check);
void findBadPlaceholders(Check &check);
void findRepeatedPlaceholders(Check &check);
void findFieldsWithoutPlaceholder(Check &check);

} // namespace Orvida::Checking
