#include "checking/rules/ListValues_p.h"

namespace Orvida::Checking {

namespace {

// Bits of LC_TypeFlags.
constexpr int valueIsInternal = 0x20;
constexpr int valueIsCaption = 0x01;

} // namespace

bool isDefectList(const Check &check, int list)
{
    return check.catalog.text(list, ListClassToken::LC_Class_ID) == QLatin1String("LC_ID_CD");
}

ListItemToken valueToken(const Check &check, int list, int entry)
{
    if (isDefectList(check, list))
        return ListItemToken::LIST_Internal;
    const int flags = check.catalog.number(list, ListClassToken::LC_TypeFlags);
    if (flags & valueIsInternal
        && !check.catalog.text(entry, ListItemToken::LIST_Internal).trimmed().isEmpty())
        return ListItemToken::LIST_Internal;
    return flags & valueIsCaption ? ListItemToken::LIST_Caption : ListItemToken::LIST_Item;
}

QString listName(const Check &check, int list)
{
    return QStringLiteral("%1 of profile %2")
        .arg(check.shownText(check.catalog.value(list, ListClassToken::LC_Class_ID)),
             check.shownText(check.catalog.value(list, ListClassToken::LC_Profile_FK)));
}

} // namespace Orvida::Checking
