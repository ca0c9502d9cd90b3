#include "checking/comparison/ListChanges_p.h"

#include "checking/comparison/ItemChanges_p.h"
#include "checking/comparison/ListEntries_p.h"
#include "checking/comparison/Similarity_p.h"
#include "checking/findings/Wording_p.h"
#include "checking/rules/ListValues_p.h"

#include <algorithm>
#include <set>

namespace Orvida::Checking {

namespace {

// Whether an entry has nothing but its value in common with another one. A text that both lack says nothing.
bool isReused(const Edition &oldEdition, const ListEntry &before, const Edition &newEdition,
              const ListEntry &after)
{
    const auto isUnlike = [&](ListItemToken token) {
        return meanSomethingElse(oldEdition.text(before.record, token), newEdition.text(after.record, token));
    };
    const bool lackCaptions = before.caption == 0 && after.caption == 0;
    const bool lackItems = before.item == 0 && after.item == 0;
    return !(lackCaptions && lackItems) && (lackCaptions || isUnlike(ListItemToken::LIST_Caption))
           && (lackItems || isUnlike(ListItemToken::LIST_Item));
}

struct EntryChange
{
    ListEntry before;
    ListEntry after;
};

// How the entries of two lists differ.
struct ListDifference
{
    ValueChoice oldChoice = ValueChoice::Item;
    ValueChoice newChoice = ValueChoice::Item;
    /// Entries of the same value whose texts differ.
    std::vector<EntryChange> changed;
    std::vector<EntryChange> renamed;
    std::vector<ListEntry> removed;
    std::vector<ListEntry> added;
    bool isReordered = false;
};

bool isSameEntry(const ListEntry &a, const ListEntry &b)
{
    return a.caption == b.caption && a.item == b.item && a.count == b.count;
}

ListDifference differenceOf(EditionPair &pair, const EditionPair::Records &lists)
{
    ListDifference difference;
    difference.oldChoice = valueChoice(pair.oldEdition.check(), lists.oldRecord);
    difference.newChoice = valueChoice(pair.newEdition.check(), lists.newRecord);
    const std::vector<ListEntry> olds = entriesByValue(pair.oldEdition, lists.oldRecord);
    const std::vector<ListEntry> news = entriesByValue(pair.newEdition, lists.newRecord);
    const EntryPairs pairs = pairEntries(olds, news);
    std::vector<std::pair<int, int>> orders;
    const auto note = [&](const EntryPairs::Pair &found, std::vector<EntryChange> &changes, bool isChange) {
        const ListEntry &before = olds[std::size_t(found.oldEntry)];
        const ListEntry &after = news[std::size_t(found.newEntry)];
        pair.records.push_back({before.record, after.record});
        orders.emplace_back(before.sortOrder, after.sortOrder);
        if (isChange || !isSameEntry(before, after))
            changes.push_back({before, after});
    };
    for (const EntryPairs::Pair &found : pairs.same)
        note(found, difference.changed, false);
    for (const EntryPairs::Pair &found : pairs.renamed)
        note(found, difference.renamed, true);
    for (const int entry : pairs.removed)
        difference.removed.push_back(olds[std::size_t(entry)]);
    for (const int entry : pairs.added)
        difference.added.push_back(news[std::size_t(entry)]);
    difference.isReordered = isReordered(std::move(orders));
    return difference;
}

// Tells how a list differs in profiles in which it has the same entries.
class ListTeller
{
public:
    ListTeller(EditionPair &pair, int usedList, const ProfilePairs::Set &profiles,
               const EditionPair::Records &lists, const ListDifference &difference)
        : m_pair(pair),
          m_usedList(usedList),
          m_profiles(profiles),
          m_lists(lists),
          m_difference(difference),
          m_id(pair.newEdition.string(lists.newRecord, ListClassToken::LC_Class_ID))
    {
    }

    void tell();

private:
    ChangeDraft &add(Change change);
    ChangeDraft &addValue(Change change, const ListEntry *before, const ListEntry *after);
    QString oldValue(const ListEntry &entry) const
    {
        return m_pair.oldEdition
            .text(listValue(m_pair.oldEdition.check(), m_difference.oldChoice, entry.record))
            .toString();
    }
    QString newValue(const ListEntry &entry) const
    {
        return m_pair.newEdition
            .text(listValue(m_pair.newEdition.check(), m_difference.newChoice, entry.record))
            .toString();
    }
    bool isRuleSame() const { return m_difference.oldChoice == m_difference.newChoice; }
    void tellRule();
    void tellTexts(const ListEntry &before, const ListEntry &after);
    void tellRenamed(const ListEntry &before, const ListEntry &after);

    EditionPair &m_pair;
    const int m_usedList;
    const ProfilePairs::Set m_profiles;
    const EditionPair::Records m_lists;
    const ListDifference &m_difference;
    const QString m_id;
};

void ListTeller::tell()
{
    if (!isRuleSame())
        tellRule();
    for (const EntryChange &change : m_difference.changed)
        tellTexts(change.before, change.after);
    for (const EntryChange &change : m_difference.renamed)
        tellRenamed(change.before, change.after);
    for (const ListEntry &removed : m_difference.removed)
        addValue(Change::ValueRemoved, &removed, nullptr).told.message =
            QStringLiteral("value %1 removed").arg(quoted(oldValue(removed)));
    for (const ListEntry &added : m_difference.added)
        addValue(Change::ValueAdded, nullptr, &added).told.message =
            QStringLiteral("value %1 added").arg(quoted(newValue(added)));
    if (m_difference.isReordered)
        add(Change::ValuesReordered).told.message = QStringLiteral("values in another order");
}

ChangeDraft &ListTeller::add(Change change)
{
    ChangeDraft &draft = m_pair.report.add(change);
    draft.profiles = m_profiles;
    draft.usedList = m_usedList;
    draft.place.area = ReportPlace::Lists;
    draft.told.list = m_id;
    draft.told.subject = QStringLiteral("list ") + shown(m_id);
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_lists.oldRecord);
    draft.told.newPlace = m_pair.newEdition.placeOf(m_lists.newRecord);
    return draft;
}

// In the order of the new list; what is gone comes where it was in the old one.
ChangeDraft &ListTeller::addValue(Change change, const ListEntry *before, const ListEntry *after)
{
    ChangeDraft &draft = add(change);
    draft.place.value = after ? after->sortOrder : before->sortOrder;
    draft.told.value = after ? newValue(*after) : oldValue(*before);
    draft.told.oldText = before ? oldValue(*before) : QString();
    draft.told.newText = after ? newValue(*after) : QString();
    draft.told.oldPlace = before ? m_pair.oldEdition.placeOf(before->record) : CatalogChangePlace();
    draft.told.newPlace = after ? m_pair.newEdition.placeOf(after->record) : CatalogChangePlace();
    return draft;
}

QString choiceText(ValueChoice choice)
{
    switch (choice) {
    case ValueChoice::Item: break;
    case ValueChoice::Caption: return QStringLiteral("captions");
    case ValueChoice::InternalOrItem: return QStringLiteral("internal values, else item texts");
    case ValueChoice::InternalOrCaption: return QStringLiteral("internal values, else captions");
    case ValueChoice::Internal: return QStringLiteral("internal values");
    }
    return QStringLiteral("item texts");
}

void ListTeller::tellRule()
{
    ChangeDraft &draft = add(Change::ValueRuleChanged);
    draft.told.oldText = m_pair.oldEdition.string(m_lists.oldRecord, ListClassToken::LC_TypeFlags);
    draft.told.newText = m_pair.newEdition.string(m_lists.newRecord, ListClassToken::LC_TypeFlags);
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_lists.oldRecord, int(ListClassToken::LC_TypeFlags));
    draft.told.newPlace = m_pair.newEdition.placeOf(m_lists.newRecord, int(ListClassToken::LC_TypeFlags));
    draft.told.message = QStringLiteral("records %1 instead of %2")
                             .arg(choiceText(m_difference.newChoice), choiceText(m_difference.oldChoice));
}

void ListTeller::tellTexts(const ListEntry &before, const ListEntry &after)
{
    const Edition &olds = m_pair.oldEdition;
    const Edition &news = m_pair.newEdition;
    const bool isOther = isReused(olds, before, news, after);
    const ListItemToken token =
        before.caption != after.caption ? ListItemToken::LIST_Caption : ListItemToken::LIST_Item;
    ChangeDraft &draft =
        addValue(isOther ? Change::ValueReused : Change::ValueCaptionChanged, &before, &after);
    draft.told.oldText = olds.string(before.record, token);
    draft.told.newText = news.string(after.record, token);
    const QString texts = fromTo(draft.told.oldText, draft.told.newText);
    const QString value = quoted(draft.told.value);
    draft.told.message = isOther ? QStringLiteral("value %1 used for something else: %2").arg(value, texts)
                                 : QStringLiteral("value %1: %2").arg(value, texts);
    if (before.caption == after.caption && before.item == after.item)
        draft.told.message =
            QStringLiteral("value %1 of %2 now").arg(value, counted(after.count, "entry", "entries"));
}

void ListTeller::tellRenamed(const ListEntry &before, const ListEntry &after)
{
    for (const int profile : m_profiles)
        m_pair.addRename(CatalogRename::Value, CatalogRename::Likely, oldValue(before), newValue(after),
                         profile, m_id);
    if (!isRuleSame())
        return;
    const bool isSameItem = before.item == after.item && before.item != 0;
    addValue(Change::ValueRenamed, &before, &after).told.message =
        QStringLiteral("value %1 → %2 renamed (same %3)")
            .arg(quoted(oldValue(before)), quoted(newValue(after)),
                 isSameItem ? QStringLiteral("item text") : QStringLiteral("caption"));
}

// All profiles in which some field uses the list.
std::set<int> profilesOf(const UsedLists::List &list)
{
    std::set<const ProfilePairs::Set *> sets;
    for (const UsedLists::Use &use : list.uses)
        sets.insert(use.profiles);
    std::set<int> profiles;
    for (const ProfilePairs::Set *set : sets)
        profiles.insert(set->begin(), set->end());
    return profiles;
}

// A list in profiles in which it has the same entries.
struct Variant
{
    EditionPair::Records lists;
    ProfilePairs::Set profiles;
};

// By what the lists of both editions hold: thousands of profiles may share thousands of entries.
std::map<std::pair<qint64, qint64>, Variant> variantsOf(EditionPair &pair, const UsedLists &lists,
                                                        const UsedLists::List &list)
{
    std::map<std::pair<qint64, qint64>, Variant> variants;
    for (const int profile : profilesOf(list)) {
        const EditionPair::Records records = {lists.oldRecord(list.oldId, profile),
                                              lists.newRecord(list.newId, profile)};
        if (records.oldRecord < 0 || records.newRecord < 0)
            continue;
        pair.records.push_back(records);
        const auto values = std::make_pair(valuesKey(pair.oldEdition.check(), records.oldRecord),
                                           valuesKey(pair.newEdition.check(), records.newRecord));
        variants.insert({values, {records, {}}}).first->second.profiles.append(profile);
    }
    return variants;
}

} // namespace

void findListChanges(EditionPair &pair, const UsedLists &lists)
{
    // Many lists may have the same entries, too.
    std::map<std::pair<qint64, qint64>, ListDifference> differences;
    for (int number = 0; number < int(lists.lists().size()); ++number) {
        for (const auto &[values, found] : variantsOf(pair, lists, lists.lists()[std::size_t(number)])) {
            auto known = differences.find(values);
            if (known == differences.end())
                known = differences.emplace(values, differenceOf(pair, found.lists)).first;
            ListTeller(pair, number, found.profiles, found.lists, known->second).tell();
        }
    }
}

namespace {

bool overlap(const ProfilePairs::Set &a, const ProfilePairs::Set &b)
{
    const ProfilePairs::Set &fewer = a.size() < b.size() ? a : b;
    const ProfilePairs::Set &more = a.size() < b.size() ? b : a;
    return std::any_of(fewer.begin(), fewer.end(), [&more](int profile) {
        return std::binary_search(more.begin(), more.end(), profile);
    });
}

} // namespace

// Most changes share the data of their sets, which spares looking for the uses that they touch.
void TouchedCodes::describe(ChangeDraft &draft)
{
    const Codes *&codes = m_knownBySet[{draft.usedList, draft.profiles.constData()}];
    if (!codes)
        codes = &codesOf(draft.usedList, draft.profiles);
    draft.told.codes = codes->names;
    draft.told.codeCount = codes->count;
}

const TouchedCodes::Codes &TouchedCodes::codesOf(int list, const ProfilePairs::Set &profiles)
{
    std::vector<const Items *> touched;
    for (const auto &[usedIn, items] : usesOf(list)) {
        if (overlap(*usedIn, profiles))
            touched.push_back(&items);
    }
    const auto [known, isNew] = m_known.insert({touched, Codes()});
    if (isNew)
        known->second = codesOf(touched);
    return known->second;
}

const TouchedCodes::Uses &TouchedCodes::usesOf(int list)
{
    const auto [known, isNew] = m_uses.insert({list, Uses()});
    if (isNew) {
        for (const UsedLists::Use &use : m_lists.lists()[std::size_t(list)].uses)
            known->second[use.profiles].push_back(use.newItem);
    }
    return known->second;
}

// By the tree.
TouchedCodes::Codes TouchedCodes::codesOf(const std::vector<const Items *> &touched) const
{
    constexpr int mostNamed = 20;
    Items items;
    for (const Items *some : touched)
        items.insert(items.end(), some->begin(), some->end());
    std::sort(items.begin(), items.end(),
              [this](int a, int b) { return m_pair.placeOfNew(a).position < m_pair.placeOfNew(b).position; });
    items.erase(std::unique(items.begin(), items.end()), items.end());
    Codes codes;
    codes.count = int(items.size());
    for (int index = 0; index < std::min(codes.count, mostNamed); ++index)
        codes.names.append(m_pair.newEdition.nameOf(items[std::size_t(index)]));
    return codes;
}

} // namespace Orvida::Checking
