// Rules on profiles, and on the marks that choose one. For the checker's own use.
#pragma once

namespace Orvida::Checking {

class Check;

/// Whether the file has fields and no profile, not even a lost one. Then nothing else is reported about
/// profiles.
bool hasNoProfile(const Check &check);
/// The record of the profile that a load chooses; -1 without profiles.
int chosenProfile(const Check &check);

void findNoProfile(Check &check);
void findMarks(Check &check);
void findProfilesWithoutColumns(Check &check);

} // namespace Orvida::Checking
