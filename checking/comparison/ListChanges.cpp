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

// Whether texts that both editions number have little in common.
bool areUnlike(const Edition &oldEdition, int oldRecord, const Edition &newEdition, int newRecord,
               ListItemToken token)
{
    return meanSomethingElse(oldEdition.text(oldRecord, token), newEdition.text(newRecord, token));
}

// Compares a list in one profile.
class ListComparison
{
public:
    ListComparison(EditionPair &pair, int usedList, int profile, int oldRecord, int newRecord)
        : m_pair(pair),
          m_usedList(usedList),
          m_profile(profile),
          m_oldRecord(oldRecord),
          m_newRecord(newRecord),
          m_oldChoice(valueChoice(pair.oldEdition.check(), oldRecord)),
          m_newChoice(valueChoice(pair.newEdition.check(), newRecord)),
          m_olds(entriesByValue(pair.oldEdition, oldRecord)),
          m_news(entriesByValue(pair.newEdition, newRecord)),
          m_id(pair.newEdition.string(newRecord, ListClassToken::LC_Class_ID))
    {
    }

    void compare();

private:
    ChangeDraft &add(Change change);
    ChangeDraft &addValue(Change change, const ListEntry *before, const ListEntry *after);
    QString oldValue(const ListEntry &entry) const
    {
        return m_pair.oldEdition.text(listValue(m_pair.oldEdition.check(), m_oldChoice, entry.record))
            .toString();
    }
    QString newValue(const ListEntry &entry) const
    {
        return m_pair.newEdition.text(listValue(m_pair.newEdition.check(), m_newChoice, entry.record))
            .toString();
    }
    bool compareRule();
    void compareTexts(const ListEntry &before, const ListEntry &after);
    void tellRenamed(const ListEntry &before, const ListEntry &after, bool isRuleSame);
    void compareOrder(const EntryPairs &pairs);

    EditionPair &m_pair;
    const int m_usedList;
    const int m_profile;
    const int m_oldRecord;
    const int m_newRecord;
    const ValueChoice m_oldChoice;
    const ValueChoice m_newChoice;
    const std::vector<ListEntry> m_olds;
    const std::vector<ListEntry> m_news;
    const QString m_id;
};

void ListComparison::compare()
{
    const bool isRuleSame = compareRule();
    const EntryPairs pairs = pairEntries(m_olds, m_news);
    m_pair.records.push_back({m_oldRecord, m_newRecord});
    for (const auto [oldEntry, newEntry] : pairs.same)
        compareTexts(m_olds[std::size_t(oldEntry)], m_news[std::size_t(newEntry)]);
    for (const auto [oldEntry, newEntry] : pairs.renamed)
        tellRenamed(m_olds[std::size_t(oldEntry)], m_news[std::size_t(newEntry)], isRuleSame);
    for (const int entry : pairs.removed) {
        const ListEntry &removed = m_olds[std::size_t(entry)];
        addValue(Change::ValueRemoved, &removed, nullptr).told.message =
            QStringLiteral("value %1 removed").arg(quoted(oldValue(removed)));
    }
    for (const int entry : pairs.added) {
        const ListEntry &added = m_news[std::size_t(entry)];
        addValue(Change::ValueAdded, nullptr, &added).told.message =
            QStringLiteral("value %1 added").arg(quoted(newValue(added)));
    }
    compareOrder(pairs);
}

ChangeDraft &ListComparison::add(Change change)
{
    ChangeDraft &draft = m_pair.report.add(change);
    draft.profiles = {m_profile};
    draft.usedList = m_usedList;
    draft.place.area = ReportPlace::Lists;
    draft.told.list = m_id;
    draft.told.subject = QStringLiteral("list ") + shown(m_id);
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_oldRecord);
    draft.told.newPlace = m_pair.newEdition.placeOf(m_newRecord);
    return draft;
}

// In the order of the new list; what is gone comes where it was in the old one.
ChangeDraft &ListComparison::addValue(Change change, const ListEntry *before, const ListEntry *after)
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

bool ListComparison::compareRule()
{
    if (m_oldChoice == m_newChoice)
        return true;
    ChangeDraft &draft = add(Change::ValueRuleChanged);
    draft.told.oldText = m_pair.oldEdition.string(m_oldRecord, ListClassToken::LC_TypeFlags);
    draft.told.newText = m_pair.newEdition.string(m_newRecord, ListClassToken::LC_TypeFlags);
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_oldRecord, int(ListClassToken::LC_TypeFlags));
    draft.told.newPlace = m_pair.newEdition.placeOf(m_newRecord, int(ListClassToken::LC_TypeFlags));
    draft.told.message =
        QStringLiteral("records %1 instead of %2").arg(choiceText(m_newChoice), choiceText(m_oldChoice));
    return false;
}

void ListComparison::compareTexts(const ListEntry &before, const ListEntry &after)
{
    m_pair.records.push_back({before.record, after.record});
    if (before.caption == after.caption && before.item == after.item && before.count == after.count)
        return;
    const Edition &olds = m_pair.oldEdition;
    const Edition &news = m_pair.newEdition;
    const bool isReused = areUnlike(olds, before.record, news, after.record, ListItemToken::LIST_Caption)
                          && areUnlike(olds, before.record, news, after.record, ListItemToken::LIST_Item);
    const ListItemToken token =
        before.caption != after.caption ? ListItemToken::LIST_Caption : ListItemToken::LIST_Item;
    ChangeDraft &draft =
        addValue(isReused ? Change::ValueReused : Change::ValueCaptionChanged, &before, &after);
    draft.told.oldText = olds.string(before.record, token);
    draft.told.newText = news.string(after.record, token);
    const QString texts = fromTo(draft.told.oldText, draft.told.newText);
    const QString value = quoted(draft.told.value);
    draft.told.message = isReused ? QStringLiteral("value %1 used for something else: %2").arg(value, texts)
                                  : QStringLiteral("value %1: %2").arg(value, texts);
    if (before.caption == after.caption && before.item == after.item)
        draft.told.message =
            QStringLiteral("value %1 of %2 now").arg(value, counted(after.count, "entry", "entries"));
}

void ListComparison::tellRenamed(const ListEntry &before, const ListEntry &after, bool isRuleSame)
{
    m_pair.records.push_back({before.record, after.record});
    m_pair.addRename(CatalogRename::Value, CatalogRename::Likely, oldValue(before), newValue(after),
                     m_profile, m_id);
    if (!isRuleSame)
        return;
    const bool isSameItem = before.item == after.item && before.item != 0;
    addValue(Change::ValueRenamed, &before, &after).told.message =
        QStringLiteral("value %1 → %2 renamed (same %3)")
            .arg(quoted(oldValue(before)), quoted(newValue(after)),
                 isSameItem ? QStringLiteral("item text") : QStringLiteral("caption"));
}

void ListComparison::compareOrder(const EntryPairs &pairs)
{
    std::vector<std::pair<int, int>> orders;
    for (const auto &found : {pairs.same, pairs.renamed}) {
        for (const auto [oldEntry, newEntry] : found)
            orders.emplace_back(m_olds[std::size_t(oldEntry)].sortOrder,
                                m_news[std::size_t(newEntry)].sortOrder);
    }
    if (isReordered(std::move(orders)))
        add(Change::ValuesReordered).told.message = QStringLiteral("values in another order");
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

} // namespace

void findListChanges(EditionPair &pair, const UsedLists &lists)
{
    for (int number = 0; number < int(lists.lists().size()); ++number) {
        const UsedLists::List &list = lists.lists()[std::size_t(number)];
        for (const int profile : profilesOf(list)) {
            const int oldRecord = lists.oldRecord(list.oldId, profile);
            const int newRecord = lists.newRecord(list.newId, profile);
            if (oldRecord >= 0 && newRecord >= 0)
                ListComparison(pair, number, profile, oldRecord, newRecord).compare();
        }
    }
}

void TouchedCodes::describe(ChangeDraft &draft)
{
    const auto place = std::make_pair(draft.usedList, draft.profiles);
    auto known = m_known.find(place);
    if (known == m_known.end())
        known = m_known.emplace(place, codesOf(m_lists.lists()[std::size_t(draft.usedList)], draft.profiles))
                    .first;
    draft.told.codes = known->second.names;
    draft.told.codeCount = known->second.count;
}

// By the tree.
TouchedCodes::Codes TouchedCodes::codesOf(const UsedLists::List &list,
                                          const ProfilePairs::Set &profiles) const
{
    constexpr int mostNamed = 20;
    std::map<const ProfilePairs::Set *, bool> isTouched;
    std::vector<int> items;
    for (const UsedLists::Use &use : list.uses) {
        const auto [known, isNew] = isTouched.insert({use.profiles, false});
        if (isNew)
            known->second = std::any_of(use.profiles->begin(), use.profiles->end(), [&](int profile) {
                return std::binary_search(profiles.begin(), profiles.end(), profile);
            });
        if (known->second)
            items.push_back(use.newItem);
    }
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
