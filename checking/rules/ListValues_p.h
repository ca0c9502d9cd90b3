// The values of value lists. For the checker's own use.
#pragma once

#include "checking/reading/CatalogLinks_p.h"
#include "checking/rules/Check_p.h"

namespace Orvida::Checking {

/// Whether a list class holds continuous-defect codes instead of values.
bool isDefectList(const Check &check, int list);
/// The field of an entry that gives its value in `list`.
ListItemToken valueToken(const Check &check, int list, int entry);
/// What is recorded of an entry of `list`; 0 when it is missing.
inline Symbol listValue(const Check &check, int list, int entry)
{
    return check.catalog.value(entry, valueToken(check, list, entry));
}
/// The entries of a list class that counts.
inline Groups::Members entriesOf(const Check &check, int list)
{
    return check.links.entries(check.catalog.value(list, ListClassToken::LC_PK));
}
/// "SIDES of profile P"
QString listName(const Check &check, int list);

} // namespace Orvida::Checking
