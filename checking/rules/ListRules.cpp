#include "checking/rules/ListRules_p.h"

#include "catalogs/reading/FieldConversion_p.h"
#include "checking/rules/Check_p.h"
#include "checking/rules/ListValues_p.h"

#include <cmath>

namespace Orvida::Checking {

namespace {

// Of LC_TypeFlags: what an entry records.
constexpr int valueFlags = 0x21;
constexpr int valueIsInternal = 0x20;

QString entryName(const Check &check, int entry)
{
    for (const ListItemToken token : {ListItemToken::LIST_Item, ListItemToken::LIST_Caption}) {
        const Symbol text = check.catalog.value(entry, token);
        if (text != 0)
            return check.shownText(text);
    }
    return QStringLiteral("the entry in line ") + check.lineOf(entry);
}

bool isBlank(const Check &check, Symbol text)
{
    return check.text(text).trimmed().isEmpty();
}

} // namespace

// A load builds the entries of each list class, also of one that a later one replaces.
void findEntriesWithoutValue(Check &check)
{
    check.forEachRecord(Section::LC, [&](int list) {
        for (const int entry : entriesOf(check, list)) {
            const ListItemToken token = valueToken(check, list, entry);
            if (!isBlank(check, check.catalog.value(entry, token)))
                continue;
            CatalogFinding *finding =
                check.add(Fault(Rule::EntryWithoutValue, placeOf(check.catalog, entry)).about(entry));
            if (!finding)
                continue;
            finding->message = QStringLiteral("an entry of list %1 has no value").arg(listName(check, list));
            finding->hint = QStringLiteral("give it %1").arg(formatOf(Section::LIST, int(token)).name);
        }
    });
}

void findRepeatedListValues(Check &check)
{
    check.forEachRecord(Section::LC, [&](int list) {
        if (!check.links.counts(list))
            return;
        Groups byValue;
        for (const int entry : entriesOf(check, list))
            byValue.add(listValue(check, list, entry), entry);
        byValue.sort();
        byValue.forEach([&](const Groups::Members &entries) {
            if (entries.size() < 2 || isBlank(check, Symbol(entries.key())))
                return;
            const bool isDefect = isDefectList(check, list);
            const int second = entries[1];
            CatalogFinding *finding =
                check.add(Fault(isDefect ? Rule::RepeatedDefectCode : Rule::RepeatedListValue,
                                placeOf(check.catalog, second))
                              .about(second));
            if (!finding)
                return;
            finding->message = QStringLiteral("%1 is the value of %2 and of %3")
                                   .arg(check.quotedText(Symbol(entries.key())), entryName(check, entries[0]),
                                        entryName(check, second));
            if (isDefect)
                finding->message += QStringLiteral("; the text of one is lost");
            FindingReport::relate(*finding, placeOf(check.catalog, entries[0]),
                                  QStringLiteral("the other entry"));
        });
    });
}

// Entries of no list, and those without a value, are told of as such.
void findEntriesWithoutCaption(Check &check)
{
    check.forEachRecord(Section::LIST, [&](int entry) {
        const Symbol key = check.catalog.value(entry, ListItemToken::LIST_Class_FK);
        const LocatedField *caption = check.catalog.field(entry, ListItemToken::LIST_Caption);
        const bool isOdd = caption && !check.catalog.rawText(*caption).isEmpty();
        if (isOdd || (caption && !isBlank(check, caption->value)))
            return;
        const int list = check.links.recordWith(KeySpace::ListClass, key);
        const bool hasItem = !isBlank(check, check.catalog.value(entry, ListItemToken::LIST_Item));
        if (list < 0 || isBlank(check, listValue(check, list, entry)))
            return;
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
    check.forEachRecord(Section::LC, [&](int list) {
        const bool isAsked = check.links.counts(list) && !isDefectList(check, list)
                             && check.catalog.number(list, ListClassToken::LC_TypeFlags) & valueIsInternal;
        if (!isAsked)
            return;
        const Groups::Members entries = entriesOf(check, list);
        const auto hasInternal = [&](int entry) {
            return !isBlank(check, check.catalog.value(entry, ListItemToken::LIST_Internal));
        };
        bool isMixed = false;
        for (const int entry : entries)
            isMixed = isMixed || hasInternal(entry);
        for (const int entry : entries) {
            if (!isMixed || hasInternal(entry))
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
    for (const int entry : entriesOf(check, list)) {
        const Symbol value = listValue(check, list, entry);
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

void tellUnfit(Check &check, const CatalogLinks::InputField &field, int list, const Unfit &unfit)
{
    const QString type = field.parameter < 0
                             ? QString()
                             : check.catalog.text(field.parameter, ParameterToken::PARAM_DataType).toString();
    const bool isInteger = type == QLatin1String("INT");
    const Symbol wrong = isInteger && unfit.noNumber == 0 ? unfit.fraction : unfit.noNumber;
    const Place place = placeOf(check.catalog, field.record, ParameterExtensionToken::PX_ListClass_ID);
    if (wrong != 0 && (isInteger || type == QLatin1String("DEC"))) {
        CatalogFinding *finding = check.add(Fault(Rule::ListValueType, place).about(field.record));
        if (finding)
            finding->message =
                QStringLiteral("field %1 is %2, but list %3 has the value %4")
                    .arg(check.keyOf(field.record), type, listName(check, list), check.quotedText(wrong));
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
    QHash<int, Unfit> unfits;
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        for (const int column : check.links.columns(field.list == 0 ? 0 : field.column)) {
            const int list =
                check.links.list(field.list, check.catalog.value(column, ColumnToken::COL_Profile_FK));
            if (list < 0)
                continue;
            if (!unfits.contains(list))
                unfits.insert(list, unfitValues(check, list));
            tellUnfit(check, field, list, unfits[list]);
        }
    }
}

void findDifferentListTexts(Check &check)
{
    if (!check.report.isOn(Rule::ListTextDiffers))
        return;
    check.links.lists().forEach([&](const Groups::Members &lists) {
        QHash<Symbol, int> firstEntries;
        for (const int list : lists) {
            for (const int entry : entriesOf(check, list)) {
                const Symbol value = listValue(check, list, entry);
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
