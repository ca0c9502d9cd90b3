#include "checking/rules/ListRules_p.h"

#include "checking/reading/Characters_p.h"
#include "checking/rules/Check_p.h"
#include "checking/rules/FieldTypes_p.h"
#include "checking/rules/ListValues_p.h"

#include <cmath>
#include <map>
#include <set>

namespace Orvida::Checking {

namespace {

// Of LC_TypeFlags: what an entry records.
constexpr int valueFlags = 0x21;

QString entryName(const Check &check, int entry)
{
    for (const ListItemToken token : {ListItemToken::LIST_Item, ListItemToken::LIST_Caption}) {
        const Symbol text = check.catalog.value(entry, token);
        if (text != 0)
            return check.shownText(text);
    }
    return QStringLiteral("the entry in line ") + check.lineOf(entry);
}

} // namespace

// A load builds the entries of each list class, also of one that a later one replaces.
void findEntriesWithoutValue(Check &check)
{
    forEachValues(check, false, [&](const Groups::Members &lists) {
        const ValueChoice choice = valueChoice(check, lists.first());
        for (const int entry : entriesOf(check, lists.first())) {
            const ListItemToken token = valueToken(check, choice, entry);
            if (!isBlank(check.catalog.text(entry, token)))
                continue;
            const Fault fault = Fault(Rule::EntryWithoutValue, placeOf(check.catalog, entry)).about(entry);
            CatalogFinding *finding = check.add(Fault(fault).times(lists.size()));
            if (!finding)
                continue;
            finding->message =
                QStringLiteral("an entry of list %1 has no value").arg(listName(check, lists.first()));
            finding->hint = QStringLiteral("give it %1").arg(formatOf(Section::LIST, int(token)).name);
        }
    });
}

namespace {

void reportRepeatedValue(Check &check, bool isDefect, const Groups::Members &entries)
{
    const int second = entries[1];
    const Rule rule = isDefect ? Rule::RepeatedDefectCode : Rule::RepeatedListValue;
    CatalogFinding *finding =
        check.add(Fault(rule, placeOf(check.catalog, second)).about(second).times(entries.size() - 1));
    if (!finding)
        return;
    finding->message = QStringLiteral("%1 is the value of %2 and of %3")
                           .arg(check.quotedText(Symbol(entries.key())), entryName(check, entries[0]),
                                entryName(check, second));
    if (isDefect)
        finding->message += QStringLiteral("; the text of one is lost");
    FindingReport::relate(*finding, placeOf(check.catalog, entries[0]), QStringLiteral("the other entry"));
    for (int index = 2; index < entries.size() && index <= mostRelated; ++index)
        FindingReport::relate(*finding, placeOf(check.catalog, entries[index]), QStringLiteral("the same"));
}

} // namespace

void findRepeatedListValues(Check &check)
{
    forEachValues(check, true, [&](const Groups::Members &lists) {
        const ValueChoice choice = valueChoice(check, lists.first());
        Groups byValue;
        for (const int entry : entriesOf(check, lists.first()))
            byValue.add(listValue(check, choice, entry), entry);
        byValue.sort();
        byValue.forEach([&](const Groups::Members &entries) {
            if (entries.size() > 1 && !isBlank(check.text(Symbol(entries.key()))))
                reportRepeatedValue(check, choice == ValueChoice::Internal, entries);
        });
    });
}

void findEntriesWithoutCaption(Check &check)
{
    check.forEachRecord(Section::LIST, [&](int entry) {
        const Symbol key = check.catalog.value(entry, ListItemToken::LIST_Class_FK);
        const LocatedField *caption = check.catalog.field(entry, ListItemToken::LIST_Caption);
        // A text that is not scrambled as it should be is reported as such.
        const bool isOdd = caption && !check.catalog.rawText(*caption).isEmpty();
        if (isOdd || (caption && !isBlank(check.text(caption->value))))
            return;
        const bool hasItem = !isBlank(check.catalog.text(entry, ListItemToken::LIST_Item));
        CatalogFinding *finding =
            check.add(Fault(Rule::EntryWithoutCaption, placeOf(check.catalog, entry))
                          .as(hasItem ? CatalogSeverity::Note : CatalogSeverity::Warning)
                          .about(hasItem ? key : check.catalog.texts.size() + qint64(key)));
        if (finding) {
            finding->message =
                QStringLiteral("an entry of list class %1 has no caption%2")
                    .arg(check.shownText(key), hasItem ? QString() : QStringLiteral(" and no text"));
            finding->hint = QStringLiteral("give it LIST_Caption");
        }
    });
}

void findEntriesWithoutInternal(Check &check)
{
    if (!check.report.isOn(Rule::EntryWithoutInternal))
        return;
    forEachValues(check, true, [&](const Groups::Members &lists) {
        const int list = lists.first();
        const ValueChoice choice = valueChoice(check, list);
        if (choice != ValueChoice::InternalOrItem && choice != ValueChoice::InternalOrCaption)
            return;
        const auto hasInternal = [&](int entry) {
            return !isBlank(check.catalog.text(entry, ListItemToken::LIST_Internal));
        };
        const Groups::Members entries = entriesOf(check, list);
        if (std::none_of(entries.begin(), entries.end(), hasInternal))
            return;
        for (const int entry : entries) {
            if (hasInternal(entry))
                continue;
            CatalogFinding *finding =
                check.add(Fault(Rule::EntryWithoutInternal, placeOf(check.catalog, entry)).about(list));
            if (finding)
                finding->message = QStringLiteral("%1 has no LIST_Internal, as other entries of list %2 have")
                                       .arg(entryName(check, entry), listName(check, list));
        }
    });
}

namespace {

// The entries of a list that fit some fields only: the first of each sort, 0 for none, as symbols.
struct Unfit
{
    Symbol noNumber = 0;
    Symbol fraction = 0;
    Symbol longest = 0;
};

Unfit unfitValues(const Check &check, int list)
{
    Unfit unfit;
    const ValueChoice choice = valueChoice(check, list);
    for (const int entry : entriesOf(check, list)) {
        const Symbol value = listValue(check, choice, entry);
        bool isNumber = false;
        const double number = check.catalog.texts.string(value).toDouble(&isNumber);
        if (!isNumber && unfit.noNumber == 0)
            unfit.noNumber = value;
        if (isNumber && number != std::floor(number) && unfit.fraction == 0)
            unfit.fraction = value;
        if (check.text(value).size() > check.text(unfit.longest).size())
            unfit.longest = value;
    }
    return unfit;
}

void reportUnfit(Check &check, const CatalogLinks::InputField &field, int list, const Unfit &unfit)
{
    const Type type = parameterType(check, field.parameter);
    const bool isInteger = type == Type::Integer;
    const Symbol wrong = isInteger && unfit.noNumber == 0 ? unfit.fraction : unfit.noNumber;
    const Place place = placeOf(check.catalog, field.record, ParameterExtensionToken::PX_ListClass_ID);
    if (wrong != 0 && isNumeric(type)) {
        CatalogFinding *finding = check.add(Fault(Rule::ListValueType, place).about(field.record));
        if (finding)
            finding->message =
                QStringLiteral("field %1 is %2, but list %3 has the value %4")
                    .arg(check.keyOf(field.record),
                         check.catalog.text(field.parameter, ParameterToken::PARAM_DataType).toString(),
                         listName(check, list), check.quotedText(wrong));
    }
    const int length = check.catalog.number(field.record, ParameterExtensionToken::PX_Length);
    if (length <= 0 || check.text(unfit.longest).size() <= length)
        return;
    CatalogFinding *finding = check.add(Fault(Rule::ListValueTooLong, place).about(field.record));
    if (finding)
        finding->message =
            QStringLiteral("list %1 has the value %2, which is longer than PX_Length %3")
                .arg(listName(check, list), check.quotedText(unfit.longest), QString::number(length));
}

} // namespace

void findUnfitListValues(Check &check)
{
    std::map<qint64, Unfit> unfits;
    check.forEachFieldAndColumn([&](const CatalogLinks::InputField &field, int column) {
        const int list =
            check.links.list(field.list, check.catalog.value(column, ColumnToken::COL_Profile_FK));
        if (field.list == 0 || list < 0 || !hasTypeAndColumn(check, field))
            return;
        const qint64 key = valuesKey(check, list);
        auto unfit = unfits.find(key);
        if (unfit == unfits.end())
            unfit = unfits.insert({key, unfitValues(check, list)}).first;
        reportUnfit(check, field, list, unfit->second);
    });
}

void findDifferentListTexts(Check &check)
{
    if (!check.report.isOn(Rule::ListTextDiffers))
        return;
    check.links.lists().forEach([&](const Groups::Members &lists) {
        QHash<Symbol, int> firstEntries;
        std::set<qint64> seen;
        for (const int list : lists) {
            if (!seen.insert(valuesKey(check, list)).second)
                continue;
            for (const int entry : entriesOf(check, list)) {
                const Symbol value = listValue(check, valueChoice(check, list), entry);
                const int first = firstEntries.value(value, entry);
                firstEntries.insert(value, first);
                const bool isAlike = check.catalog.value(first, ListItemToken::LIST_Caption)
                                         == check.catalog.value(entry, ListItemToken::LIST_Caption)
                                     && check.catalog.value(first, ListItemToken::LIST_Item)
                                            == check.catalog.value(entry, ListItemToken::LIST_Item);
                if (isAlike)
                    continue;
                CatalogFinding *finding =
                    check.add(Fault(Rule::ListTextDiffers, placeOf(check.catalog, entry))
                                  .about(pairOf(int(lists.key()), value)));
                if (finding)
                    finding->message = QStringLiteral("the value %1 has other texts here than in line %2")
                                           .arg(check.quotedText(value), check.lineOf(first));
            }
        }
    });
}

void findDifferentListFlags(Check &check)
{
    check.links.lists().forEach([&](const Groups::Members &lists) {
        const int first = lists.first();
        const int flags = check.catalog.number(first, ListClassToken::LC_TypeFlags) & valueFlags;
        for (const int list : lists) {
            const int others = check.catalog.number(list, ListClassToken::LC_TypeFlags) & valueFlags;
            if (others == flags || isDefectList(check, list))
                continue;
            const Place place = placeOf(check.catalog, list, ListClassToken::LC_TypeFlags);
            CatalogFinding *finding = check.add(Fault(Rule::ListFlagsDiffer, place).about(lists.key()));
            if (!finding)
                continue;
            finding->message = QStringLiteral("list %1 does not record the same as list %2")
                                   .arg(listName(check, list), listName(check, first));
            finding->hint = QStringLiteral("write the same LC_TypeFlags");
            FindingReport::relate(*finding, placeOf(check.catalog, first), QStringLiteral("the other list"));
        }
    });
}

namespace {

// Which texts some field `token` of some record `kind` has, lost ones included.
template <typename Token>
void markUsed(const Check &check, Section kind, Token token, std::vector<bool> &isUsed)
{
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        if (check.catalog.record(record).kind == kind)
            isUsed[std::size_t(check.catalog.value(record, token))] = true;
    }
}

} // namespace

void findUnusedLists(Check &check)
{
    std::vector<bool> isUsed(std::size_t(check.catalog.texts.size()));
    std::vector<bool> isReferred(isUsed.size());
    markUsed(check, Section::PARAMX, ParameterExtensionToken::PX_ListClass_ID, isUsed);
    markUsed(check, Section::COL, ColumnToken::COL_ListClass_REF, isReferred);
    check.links.lists().forEach([&](const Groups::Members &lists) {
        bool isNeeded = isUsed[std::size_t(lists.key())] || isDefectList(check, lists.first());
        for (const int list : lists) {
            const Symbol key = check.catalog.value(list, ListClassToken::LC_PK);
            isNeeded = isNeeded || (key != 0 && isReferred[std::size_t(key)]);
        }
        if (isNeeded)
            return;
        if (CatalogFinding *finding =
                check.add(Fault(Rule::UnusedList, placeOf(check.catalog, lists.first()))))
            finding->message =
                QStringLiteral("no field uses list %1").arg(check.shownText(Symbol(lists.key())));
    });
}

void findUnusedParameters(Check &check)
{
    std::vector<bool> isUsed(std::size_t(check.catalog.texts.size()));
    markUsed(check, Section::PARAMX, ParameterExtensionToken::PX_Param_FK, isUsed);
    markUsed(check, Section::LIST, ListItemToken::LIST_Param_ID, isUsed);
    check.forEachRecord(Section::PARAM, [&](int record) {
        if (!check.links.counts(record)
            || isUsed[std::size_t(check.catalog.value(record, ParameterToken::PARAM_PK))])
            return;
        if (CatalogFinding *finding = check.add(Fault(Rule::UnusedParameter, placeOf(check.catalog, record))))
            finding->message = QStringLiteral("no field uses parameter %1").arg(check.keyOf(record));
    });
}

void findUnusedColumns(Check &check)
{
    std::vector<bool> isUsed(std::size_t(check.catalog.texts.size()));
    markUsed(check, Section::PARAMX, ParameterExtensionToken::PX_Column_ID, isUsed);
    check.links.columns().forEach([&](const Groups::Members &records) {
        if (isUsed[std::size_t(records.key())])
            return;
        CatalogFinding *finding =
            check.add(Fault(Rule::UnusedColumn, placeOf(check.catalog, records.first())));
        if (finding)
            finding->message =
                QStringLiteral("no field uses column %1").arg(check.shownText(Symbol(records.key())));
    });
}

} // namespace Orvida::Checking
