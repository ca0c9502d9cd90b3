// Looks for changes to value lists. For the comparison's own use.
#pragma once

#include "checking/comparison/UsedLists_p.h"

#include <map>
#include <utility>

namespace Orvida::Checking {

/// Compares the lists that fields use in both editions.
void findListChanges(EditionPair &pair, const UsedLists &lists);

/// Tells of changes to lists which codes they touch.
class TouchedCodes
{
public:
    TouchedCodes(const EditionPair &pair, const UsedLists &lists) : m_pair(pair), m_lists(lists) {}

    /// Completes a change to a list that fields use. All changes must live as long as this.
    void describe(ChangeDraft &draft);

private:
    struct Codes
    {
        QStringList names;
        int count = 0;
    };

    Codes codesOf(const UsedLists::List &list, const ProfilePairs::Set &profiles) const;

    const EditionPair &m_pair;
    const UsedLists &m_lists;
    std::map<std::pair<int, ProfilePairs::Set>, Codes> m_known;
    /// The same by the data of the sets.
    std::map<std::pair<int, const int *>, const Codes *> m_knownBySet;
};

} // namespace Orvida::Checking
