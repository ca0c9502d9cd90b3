// Looks for changes to value lists. For the comparison's own use.
#pragma once

#include "checking/comparison/UsedLists_p.h"

#include <map>
#include <utility>
#include <vector>

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

    /// Items whose fields use a list, and the same by the profiles that they do it in.
    using Items = std::vector<int>;
    using Uses = std::map<const ProfilePairs::Set *, Items>;

    const Codes &codesOf(int list, const ProfilePairs::Set &profiles);
    Codes codesOf(const std::vector<const Items *> &touched) const;
    const Uses &usesOf(int list);

    const EditionPair &m_pair;
    const UsedLists &m_lists;
    std::map<int, Uses> m_uses;
    std::map<std::vector<const Items *>, Codes> m_known;
    /// By used list, and by the data of the set of profiles.
    std::map<std::pair<int, const int *>, const Codes *> m_knownBySet;
};

} // namespace Orvida::Checking
