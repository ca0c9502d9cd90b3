#include "checking/rules/TreeRules_p.h"

#include "checking/rules/Check_p.h"

#include <QStringList>

namespace Orvida::Checking {

namespace {

QString itemName(const Check &check, int item)
{
    return item < 0 ? QStringLiteral("the root") : check.keyOf(check.links.item(item).record);
}

int sortOrderOf(const Check &check, int item)
{
    const int record = check.links.item(item).record;
    const LocatedField *field =
        check.catalog.fieldOf(record, itemTokens(check.catalog.record(record).kind).sortOrder);
    return field ? check.catalog.toNumber(field->value) : 0;
}

Section kindOf(const Check &check, int item)
{
    return check.catalog.record(check.links.item(item).record).kind;
}

} // namespace

void findParentLoops(Check &check)
{
    constexpr std::size_t mostNamed = 5;
    for (const std::vector<int> &loop : check.links.loops()) {
        const int below = check.links.brokenBelow(loop.front());
        const Place place = placeOf(check.catalog, check.links.item(loop.front()).record);
        CatalogFinding *finding = check.add(Fault(Rule::ParentLoop, place).affecting(below));
        if (!finding)
            continue;
        QStringList names;
        for (std::size_t index = 0; index < std::min(loop.size(), mostNamed); ++index) {
            names.append(itemName(check, loop[index]));
            if (index > 0)
                FindingReport::relate(*finding, placeOf(check.catalog, check.links.item(loop[index]).record),
                                      QStringLiteral("in the same loop"));
        }
        const int lost = below + 1 - int(loop.size());
        finding->message =
            loop.size() == 1
                ? QStringLiteral("%1 is its own parent").arg(names.first())
                : QStringLiteral("%1 are each other's parents").arg(names.join(QStringLiteral(", ")));
        finding->message +=
            lost > 0 ? QStringLiteral(", outside the tree with %1 below").arg(counted(lost, "code"))
                     : QStringLiteral(", outside the tree");
        finding->hint = QStringLiteral("give one of them another parent");
    }
}

void findMissingParents(Check &check)
{
    for (const CatalogLinks::Item &item : check.links.items()) {
        const Section kind = check.catalog.record(item.record).kind;
        if (item.parent != CatalogLinks::root || kind == Section::CLASS)
            continue;
        const bool isBaseCode = kind == Section::BASECODE;
        CatalogFinding *finding =
            check.add(Fault(isBaseCode ? Rule::CodeWithoutClass : Rule::ExtensionWithoutParent,
                            placeOf(check.catalog, item.record)));
        if (!finding)
            continue;
        finding->message = QStringLiteral("%1 has no %2: it is shown beside the classes")
                               .arg(check.keyOf(item.record),
                                    isBaseCode ? QStringLiteral("class") : QStringLiteral("parent"));
        finding->hint = isBaseCode ? QStringLiteral("give it BC_Class_FK")
                                   : QStringLiteral("give it CE_BaseCode_FK or CE_CharExt_REF");
    }
}

// If the extension named is outside the tree, nobody knows what is above it.
void findConflictingParents(Check &check)
{
    for (const CatalogLinks::Item &item : check.links.items()) {
        if (check.catalog.record(item.record).kind != Section::CHAREXT || item.parent < 0
            || item.brokenAt >= 0)
            continue;
        const Symbol code = check.catalog.value(item.record, CharacterExtensionToken::CE_BaseCode_FK);
        const Symbol extension = check.catalog.value(item.record, CharacterExtensionToken::CE_CharExt_REF);
        const int named = check.links.itemWith(code);
        if (code == 0 || extension == 0 || (named >= 0 && check.links.isAbove(named, item.parent)))
            continue;
        const Place place = placeOf(check.catalog, item.record, CharacterExtensionToken::CE_BaseCode_FK);
        if (CatalogFinding *finding = check.add(Fault(Rule::ConflictingParents, place))) {
            finding->message =
                QStringLiteral("%1 is below %2, which is not below %3")
                    .arg(check.keyOf(item.record), check.shownText(extension), check.shownText(code));
            finding->hint = QStringLiteral("remove CE_BaseCode_FK or CE_CharExt_REF");
        }
    }
}

namespace {

// Items with one code, of which it is left to chance which one answers for it.
struct SameCode
{
    Symbol code;
    std::vector<int> items;
    bool isOfExtensions;
};

std::vector<SameCode> sameCodes(const Check &check)
{
    std::vector<SameCode> result;
    check.links.keys(KeySpace::Code).forEach([&](const Groups::Members &records) {
        SameCode same{Symbol(records.key()), {}, true};
        for (const int record : records) {
            if (!check.links.counts(record))
                continue;
            same.items.push_back(check.links.itemOf(record));
            same.isOfExtensions =
                same.isOfExtensions && check.catalog.record(record).kind == Section::CHAREXT;
        }
        const bool isParentAndChild = same.items.size() == 2
                                      && (check.links.item(same.items[0]).parent == same.items[1]
                                          || check.links.item(same.items[1]).parent == same.items[0]);
        if (same.items.size() > 1 && !isParentAndChild)
            result.push_back(std::move(same));
    });
    return result;
}

void reportSameCode(Check &check, const SameCode &same)
{
    const int first = check.links.item(same.items[0]).record;
    const int second = check.links.item(same.items[1]).record;
    CatalogFinding *finding =
        check.add(Fault(Rule::RepeatedCode, placeOf(check.catalog, second))
                      .times(int(same.items.size()) - 1)
                      .as(same.isOfExtensions ? CatalogSeverity::Note : CatalogSeverity::Warning));
    if (!finding)
        return;
    finding->message = QStringLiteral("code %1 belongs to %2 and %3; which of them answers is left to chance")
                           .arg(check.shownText(same.code), check.keyOf(first), check.keyOf(second));
    finding->hint = QStringLiteral("give one of them another code");
    FindingReport::relate(*finding, placeOf(check.catalog, first), QStringLiteral("the other one"));
    for (std::size_t index = 2; index < same.items.size() && index <= std::size_t(mostRelated); ++index)
        FindingReport::relate(*finding, placeOf(check.catalog, check.links.item(same.items[index]).record),
                              QStringLiteral("the same"));
}

} // namespace

// If many extensions share their codes, these are parts of codes, as intended.
void findRepeatedCodes(Check &check)
{
    constexpr int mostListed = 20;
    const std::vector<SameCode> codes = sameCodes(check);
    const auto ofExtensions =
        std::count_if(codes.begin(), codes.end(), [](const SameCode &same) { return same.isOfExtensions; });
    for (const SameCode &same : codes) {
        if (!same.isOfExtensions || ofExtensions <= mostListed) {
            reportSameCode(check, same);
            continue;
        }
        const int record = check.links.item(same.items[1]).record;
        CatalogFinding *finding = check.add(
            Fault(Rule::RepeatedCode, placeOf(check.catalog, record)).as(CatalogSeverity::Note).about(0));
        if (finding)
            finding->message =
                QStringLiteral("%1 codes belong to several extensions each, as parts of codes do")
                    .arg(int(ofExtensions));
    }
}

namespace {

// Items that are at the root for want of a parent have no order there.
bool hasOrder(const Check &check, int item)
{
    return check.links.item(item).parent != CatalogLinks::root || kindOf(check, item) == Section::CLASS;
}

// Members that have one number, of the first such number; sorted by it.
template <typename Members, typename NumberOf>
std::vector<int> firstTie(const Members &members, NumberOf numberOf)
{
    Groups byNumber;
    for (const int member : members)
        byNumber.add(numberOf(member), member);
    byNumber.sort();
    std::vector<int> tie;
    byNumber.forEach([&](const Groups::Members &equal) {
        if (!tie.empty() || equal.size() < 2)
            return;
        for (const int member : equal)
            tie.push_back(member);
    });
    return tie;
}

void reportEqualSortOrders(Check &check, int parent, const Groups::Members &tie)
{
    const Place place = placeOf(check.catalog, check.links.item(tie[1]).record);
    CatalogFinding *finding = check.add(Fault(Rule::EqualSortOrders, place).about(qint64(parent) + 1));
    if (!finding)
        return;
    finding->message =
        QStringLiteral("%1 children of %2 have sort order %3; their order is left to chance")
            .arg(QString::number(tie.size()), itemName(check, parent), QString::number(tie.key()));
    finding->hint = QStringLiteral("number them in steps of 10");
    FindingReport::relate(*finding, placeOf(check.catalog, check.links.item(tie[0]).record),
                          QStringLiteral("the first of them"));
}

} // namespace

// The ties below one parent are one finding, at the first that shows in the file.
void findEqualSortOrders(Check &check)
{
    check.links.children().forEach([&](const Groups::Members &children) {
        if (!check.links.isInTree(int(children.key())))
            return;
        Groups byOrder;
        for (const int child : children) {
            if (hasOrder(check, child))
                byOrder.add(sortOrderOf(check, child), child);
        }
        byOrder.sort();
        std::vector<Groups::Members> ties;
        byOrder.forEach([&](const Groups::Members &tie) {
            if (tie.size() > 1)
                ties.push_back(tie);
        });
        std::sort(ties.begin(), ties.end(),
                  [](const Groups::Members &a, const Groups::Members &b) { return a[1] < b[1]; });
        for (const Groups::Members &tie : ties)
            reportEqualSortOrders(check, int(children.key()), tie);
    });
}

void findEqualFieldOrders(Check &check)
{
    const auto parameterOf = [&](int field) { return check.links.inputField(field).parameter; };
    const auto orderOf = [&](int field) {
        return check.catalog.number(parameterOf(field), ParameterToken::PARAM_SortOrder);
    };
    check.links.inputFieldsByItem().forEach([&](const Groups::Members &all) {
        std::vector<int> fields;
        for (const int field : all) {
            if (parameterOf(field) >= 0
                && !check.links.columns(check.links.inputField(field).column).isEmpty())
                fields.push_back(field);
        }
        const std::vector<int> tie = firstTie(fields, orderOf);
        if (tie.empty() || all.key() < 0)
            return;
        const int second = check.links.inputField(tie[1]).record;
        CatalogFinding *finding = check.add(Fault(Rule::EqualFieldOrders, placeOf(check.catalog, second)));
        if (!finding)
            return;
        finding->message = QStringLiteral("%1 fields of %2 have parameters with sort order %3")
                               .arg(QString::number(tie.size()), itemName(check, int(all.key())),
                                    QString::number(orderOf(tie[1])));
        finding->hint = QStringLiteral("give the parameters different sort orders: PARAM_SortOrder");
        FindingReport::relate(*finding, placeOf(check.catalog, check.links.inputField(tie[0]).record),
                              QStringLiteral("the first of them"));
    });
}

void findEqualEntryOrders(Check &check)
{
    const auto orderOf = [&](int entry) {
        return check.catalog.number(entry, ListItemToken::LIST_SortOrder);
    };
    check.links.keys(KeySpace::ListClass).forEach([&](const Groups::Members &lists) {
        const std::vector<int> tie = firstTie(check.links.entries(Symbol(lists.key())), orderOf);
        if (tie.empty())
            return;
        CatalogFinding *finding =
            check.add(Fault(Rule::EqualEntryOrders, placeOf(check.catalog, lists.first())));
        if (!finding)
            return;
        finding->message =
            QStringLiteral("%1 entries of %2 have sort order %3")
                .arg(QString::number(tie.size()),
                     check.shownText(check.catalog.value(lists.first(), ListClassToken::LC_Class_ID)),
                     QString::number(orderOf(tie[1])));
        finding->hint = QStringLiteral("give the entries different sort orders: LIST_SortOrder");
        FindingReport::relate(*finding, placeOf(check.catalog, tie[1]), QStringLiteral("one of them"));
    });
}

void findEmptyClasses(Check &check)
{
    for (int item = 0; item < int(check.links.items().size()); ++item) {
        if (kindOf(check, item) != Section::CLASS || !check.links.childrenOf(item).isEmpty())
            continue;
        const int record = check.links.item(item).record;
        if (CatalogFinding *finding = check.add(Fault(Rule::EmptyClass, placeOf(check.catalog, record))))
            finding->message = QStringLiteral("class %1 has no codes").arg(check.keyOf(record));
    }
}

} // namespace Orvida::Checking
