#include "checking/comparison/ColumnRelations_p.h"

namespace Orvida::Checking {

using Set = ProfilePairs::Set;

const ColumnRelation &ColumnRelations::relation(Symbol oldColumn, Symbol newColumn)
{
    std::unique_ptr<ColumnRelation> &known = m_relations[{oldColumn, newColumn}];
    if (!known)
        known = std::make_unique<ColumnRelation>(related(oldColumn, newColumn));
    return *known;
}

// Recorded values can be moved as a whole when all of them are in the same other column now.
void ColumnRelations::addRenames(EditionPair &pair) const
{
    constexpr Symbol several = -1;
    std::map<std::pair<int, Symbol>, Symbol> newColumns;
    for (const auto &[columns, relation] : m_relations) {
        for (const int profile : qAsConst(relation->both)) {
            const auto [known, isNew] = newColumns.insert({{profile, columns.first}, columns.second});
            if (!isNew)
                known->second = several;
        }
    }
    for (const auto &[place, newColumn] : newColumns) {
        const auto [profile, oldColumn] = place;
        if (newColumn != several && pair.oldEdition.common(oldColumn) != pair.newEdition.common(newColumn))
            pair.addRename(CatalogRename::Column, CatalogRename::Certain,
                           pair.oldEdition.text(oldColumn).toString(),
                           pair.newEdition.text(newColumn).toString(), profile);
    }
}

ColumnRelation ColumnRelations::related(Symbol oldColumn, Symbol newColumn) const
{
    std::map<int, std::pair<int, int>> records;
    for (const int record : m_pair.oldEdition.links().columns(oldColumn)) {
        const int profile =
            m_pair.profiles.withOldKey(m_pair.oldEdition.value(record, ColumnToken::COL_Profile_FK));
        records[profile] = {record, -1};
    }
    for (const int record : m_pair.newEdition.links().columns(newColumn)) {
        const int profile =
            m_pair.profiles.withNewKey(m_pair.newEdition.value(record, ColumnToken::COL_Profile_FK));
        records.insert({profile, {-1, -1}}).first->second.second = record;
    }
    ColumnRelation relation;
    for (const auto &[profile, pair] : records) {
        if (!m_pair.isCompared(profile))
            continue;
        const auto [oldRecord, newRecord] = pair;
        Set &set = oldRecord < 0 ? relation.onlyNew : newRecord < 0 ? relation.onlyOld : relation.both;
        set.push_back(profile);
        if (oldRecord >= 0 && newRecord >= 0)
            compareFlags(relation, profile, oldRecord, newRecord);
    }
    return relation;
}

void ColumnRelations::compareFlags(ColumnRelation &relation, int profile, int oldRecord, int newRecord) const
{
    const auto compare = [&](ColumnToken token, Set &gained, Set &lost) {
        const bool was = m_pair.oldEdition.catalog().flag(oldRecord, token);
        const bool is = m_pair.newEdition.catalog().flag(newRecord, token);
        if (was != is)
            (is ? gained : lost).push_back(profile);
    };
    compare(ColumnToken::COL_Visible, relation.shown, relation.hidden);
    compare(ColumnToken::COL_ReadOnly, relation.readOnly, relation.writable);
}

} // namespace Orvida::Checking
