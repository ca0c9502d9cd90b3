// The values of value lists. For the checker's own use.
#pragma once

#include "checking/reading/CatalogLinks_p.h"
#include "checking/rules/Check_p.h"

namespace Orvida::Checking {

/// What a list class takes for the value of an entry.
enum class ValueChoice {
    Item,
    Caption,
    InternalOrItem,
    InternalOrCaption,
    Internal, ///< in the list of continuous-defect codes
};

ValueChoice valueChoice(const Check &check, int list);
/// Whether a list class holds continuous-defect codes instead of values.
bool isDefectList(const Check &check, int list);

/// The field of an entry that gives its value.
ListItemToken valueToken(const Check &check, ValueChoice choice, int entry);
/// What is recorded of an entry; 0 when it is missing.
inline Symbol listValue(const Check &check, ValueChoice choice, int entry)
{
    return check.catalog.value(entry, valueToken(check, choice, entry));
}
/// The entries of a list class.
inline Groups::Members entriesOf(const Check &check, int list)
{
    return check.links.entries(check.catalog.value(list, ListClassToken::LC_PK));
}

/// The same for all list classes with the same entries and the same values of them: thousands may share one
/// key.
inline qint64 valuesKey(const Check &check, int list)
{
    return pairOf(check.catalog.value(list, ListClassToken::LC_PK), int(valueChoice(check, list)));
}
/// Calls `visit` with the list classes of each such key; only with those that count, if `isCounting`.
template <typename Visit>
void forEachValues(const Check &check, bool isCounting, Visit visit)
{
    Groups lists;
    check.forEachRecord(Section::LC, [&](int list) {
        if (!isCounting || check.links.counts(list))
            lists.add(valuesKey(check, list), list);
    });
    lists.sort();
    lists.forEach(visit);
}

/// "SIDES of profile P"
QString listName(const Check &check, int list);

} // namespace Orvida::Checking
