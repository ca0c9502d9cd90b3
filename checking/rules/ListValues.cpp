#include "checking/rules/ListValues_p.h"

#include "checking/reading/Characters_p.h"

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

ValueChoice valueChoice(const Check &check, int list)
{
    if (isDefectList(check, list))
        return ValueChoice::Internal;
    const int flags = check.catalog.number(list, ListClassToken::LC_TypeFlags);
    if (flags & valueIsInternal)
        return flags & valueIsCaption ? ValueChoice::InternalOrCaption : ValueChoice::InternalOrItem;
    return flags & valueIsCaption ? ValueChoice::Caption : ValueChoice::Item;
}

ListItemToken valueToken(const Check &check, ValueChoice choice, int entry)
{
    const auto hasInternal = [&] {
        return !isBlank(check.catalog.text(entry, ListItemToken::LIST_Internal));
    };
    switch (choice) {
    case ValueChoice::Item: break;
    case ValueChoice::Caption: return ListItemToken::LIST_Caption;
    case ValueChoice::InternalOrItem:
        return hasInternal() ? ListItemToken::LIST_Internal : ListItemToken::LIST_Item;
    case ValueChoice::InternalOrCaption:
        return hasInternal() ? ListItemToken::LIST_Internal : ListItemToken::LIST_Caption;
    case ValueChoice::Internal: return ListItemToken::LIST_Internal;
    }
    return ListItemToken::LIST_Item;
}

QString listName(const Check &check, int list)
{
    return QStringLiteral("%1 of profile %2")
        .arg(check.shownText(check.catalog.value(list, ListClassToken::LC_Class_ID)),
             check.shownText(check.catalog.value(list, ListClassToken::LC_Profile_FK)));
}

} // namespace Orvida::Checking
