// What columns of two editions have to do with each other. For the comparison's own use.
#pragma once

#include "checking/comparison/EditionPair_p.h"

#include <map>
#include <memory>
#include <utility>

namespace Orvida::Checking {

/// A column of the old edition and one of the new one, perhaps the same: the profiles that define both or one
/// of them, and how those with both show fields in them.
struct ColumnRelation
{
    using Set = ProfilePairs::Set;

    Set both;
    Set onlyOld;
    Set onlyNew;
    Set hidden;
    Set shown;
    Set readOnly;
    Set writable;
};

/// Relates the columns of fields, each two of them once, however many fields there are.
class ColumnRelations
{
public:
    explicit ColumnRelations(const EditionPair &pair) : m_pair(pair) {}

    /// Either may be 0: no column. Remains valid as long as this.
    const ColumnRelation &relation(Symbol oldColumn, Symbol newColumn);

    /// Adds the columns that all fields of a profile, as far as they are still there, have left for the same
    /// other one. To be called when all fields were looked at.
    void addRenames(EditionPair &pair) const;

private:
    ColumnRelation related(Symbol oldColumn, Symbol newColumn) const;
    void compareFlags(ColumnRelation &relation, int profile, int oldRecord, int newRecord) const;

    const EditionPair &m_pair;
    std::map<std::pair<Symbol, Symbol>, std::unique_ptr<ColumnRelation>> m_relations;
};

} // namespace Orvida::Checking
