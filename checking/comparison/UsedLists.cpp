#include "checking/comparison/UsedLists_p.h"

#include "checking/rules/ListValues_p.h"

#include <algorithm>
#include <set>

namespace Orvida::Checking {

void UsedLists::add(Symbol oldId, Symbol newId, int newItem, const ProfilePairs::Set &profiles)
{
    const Edition::Text id = m_pair.oldEdition.common(oldId);
    if (!m_places.contains(id)) {
        m_places.insert(id, int(m_lists.size()));
        m_lists.push_back({oldId, newId, {}});
    }
    m_lists[std::size_t(m_places.value(id))].uses.push_back({newItem, &profiles});
}

const ListRelation &UsedLists::relation(Symbol oldId, Symbol newId)
{
    const qint64 ids = pairOf(oldId, newId);
    const auto known = m_relations.find(ids);
    return known != m_relations.end() ? known->second
                                      : m_relations.emplace(ids, related(oldId, newId)).first->second;
}

int UsedLists::oldRecord(Symbol id, int profile) const
{
    return recordOf(m_pair.oldEdition, id, m_pair.profiles.profile(profile).oldSymbol);
}

int UsedLists::newRecord(Symbol id, int profile) const
{
    return recordOf(m_pair.newEdition, id, m_pair.profiles.profile(profile).newSymbol);
}

int UsedLists::recordOf(const Edition &edition, Symbol id, Symbol profile)
{
    const int record = id == 0 ? -1 : edition.links().list(id, profile);
    return record < 0 || entriesOf(edition.check(), record).isEmpty() ? -1 : record;
}

ListRelation UsedLists::related(Symbol oldId, Symbol newId)
{
    std::set<int> profiles;
    for (const int record : m_pair.oldEdition.links().lists(oldId))
        profiles.insert(
            m_pair.profiles.withOldKey(m_pair.oldEdition.value(record, ListClassToken::LC_Profile_FK)));
    for (const int record : m_pair.newEdition.links().lists(newId))
        profiles.insert(
            m_pair.profiles.withNewKey(m_pair.newEdition.value(record, ListClassToken::LC_Profile_FK)));
    ListRelation relation;
    const bool isSameId = m_pair.oldEdition.common(oldId) == m_pair.newEdition.common(newId);
    for (const int profile : profiles) {
        if (!m_pair.isCompared(profile))
            continue;
        const int oldList = oldRecord(oldId, profile);
        const int newList = newRecord(newId, profile);
        if (oldList < 0 && newList >= 0)
            relation.attached.push_back(profile);
        else if (oldList >= 0 && newList < 0)
            relation.detached.push_back(profile);
        else if (oldList >= 0 && !isSameId)
            (losesValues(oldList, newList) ? relation.losing : relation.exchanged).push_back(profile);
    }
    return relation;
}

// Thousands of lists may have the same thousands of entries.
bool UsedLists::losesValues(int oldList, int newList)
{
    const auto lists = std::make_pair(valuesKey(m_pair.oldEdition.check(), oldList),
                                      valuesKey(m_pair.newEdition.check(), newList));
    const auto [known, isNew] = m_losses.insert({lists, false});
    if (isNew) {
        const std::vector<Edition::Text> &olds = valuesOf(m_pair.oldEdition, oldList, m_oldValues);
        const std::vector<Edition::Text> &news = valuesOf(m_pair.newEdition, newList, m_newValues);
        known->second = std::any_of(olds.begin(), olds.end(), [&](Edition::Text value) {
            return !std::binary_search(news.begin(), news.end(), value);
        });
    }
    return known->second;
}

// Each value once.
const std::vector<Edition::Text> &UsedLists::valuesOf(const Edition &edition, int list, Values &values)
{
    const auto [known, isNew] = values.insert({valuesKey(edition.check(), list), {}});
    std::vector<Edition::Text> &result = known->second;
    if (!isNew)
        return result;
    const ValueChoice choice = valueChoice(edition.check(), list);
    for (const int entry : entriesOf(edition.check(), list))
        result.push_back(edition.common(listValue(edition.check(), choice, entry)));
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

} // namespace Orvida::Checking
