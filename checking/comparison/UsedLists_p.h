// Which lists fields use in both editions. For the comparison's own use.
#pragma once

#include "checking/comparison/EditionPair_p.h"

#include <QHash>

#include <map>
#include <utility>
#include <vector>

namespace Orvida::Checking {

/// What two lists, which fields of the old and of the new edition name, are to these fields, by profile.
struct ListRelation
{
    ProfilePairs::Set attached;
    ProfilePairs::Set detached;
    /// Both are there, under different ids; in the first ones, values of the old one are missing.
    ProfilePairs::Set losing;
    ProfilePairs::Set exchanged;
};

/// Keeps the lists that fields use, and compares what they name. Each two lists are looked at once, however
/// many fields name them.
class UsedLists
{
public:
    /// The fields of an item that use a list, in the same profiles.
    struct Use
    {
        int newItem;
        const ProfilePairs::Set *profiles;
    };

    struct List
    {
        Symbol oldId;
        Symbol newId;
        std::vector<Use> uses;
    };

    explicit UsedLists(const EditionPair &pair) : m_pair(pair) {}

    /// Notes that a field of `newItem` uses a list of the same id in both editions. `profiles` must live as
    /// long as this.
    void add(Symbol oldId, Symbol newId, int newItem, const ProfilePairs::Set &profiles);
    const std::vector<List> &lists() const { return m_lists; }
    /// Whether fields of both editions use the list of this id.
    bool contains(Edition::Text id) const { return m_places.contains(id); }

    /// What becomes of fields that named one list and now name the other, 0 for none.
    const ListRelation &relation(Symbol oldId, Symbol newId);

    /// The records of a list in a profile; -1 where there is none, or none with entries.
    int oldRecord(Symbol id, int profile) const;
    int newRecord(Symbol id, int profile) const;

private:
    static int recordOf(const Edition &edition, Symbol id, Symbol profile);
    /// The values of lists, sorted, by `valuesKey()`.
    using Values = std::map<qint64, std::vector<Edition::Text>>;

    ListRelation related(Symbol oldId, Symbol newId);
    bool losesValues(int oldList, int newList);
    static const std::vector<Edition::Text> &valuesOf(const Edition &edition, int list, Values &values);

    const EditionPair &m_pair;
    std::vector<List> m_lists;
    QHash<Edition::Text, int> m_places;
    std::map<qint64, ListRelation> m_relations;
    Values m_oldValues;
    Values m_newValues;
    std::map<std::pair<qint64, qint64>, bool> m_losses;
};

} // namespace Orvida::Checking
