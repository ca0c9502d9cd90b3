#include "checking/comparison/DefectCodeChanges_p.h"

#include "checking/comparison/ListEntries_p.h"
#include "checking/comparison/Similarity_p.h"
#include "checking/findings/Wording_p.h"
#include "checking/rules/ListValues_p.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace Orvida::Checking {

namespace {

int defectList(const Edition &edition, Symbol profile)
{
    const Symbol id = edition.catalog().texts.find(u"LC_ID_CD");
    return id == 0 ? -1 : std::max(-1, edition.links().list(id, profile));
}

// What a load makes of the entries: the last one with a code counts.
std::vector<ListEntry> defectCodes(const Edition &edition, int record)
{
    std::vector<ListEntry> codes;
    if (record < 0)
        return codes;
    for (const int member : entriesOf(edition.check(), record)) {
        ListEntry entry;
        entry.value = edition.value(member, ListItemToken::LIST_Internal);
        entry.item = edition.value(member, ListItemToken::LIST_Item);
        entry.sortOrder = edition.catalog().number(member, ListItemToken::LIST_SortOrder);
        entry.record = member;
        codes.push_back(entry);
    }
    std::sort(codes.begin(), codes.end(), [](const ListEntry &a, const ListEntry &b) {
        return std::tie(a.value, b.sortOrder, b.item) < std::tie(b.value, a.sortOrder, a.item);
    });
    codes.erase(std::unique(codes.begin(), codes.end(),
                            [](const ListEntry &a, const ListEntry &b) { return a.value == b.value; }),
                codes.end());
    return codes;
}

// Compares continuous-defect codes in profiles in which they are the same.
class DefectCodesComparison
{
public:
    DefectCodesComparison(EditionPair &pair, const ProfilePairs::Set &profiles, int oldList, int newList)
        : m_pair(pair),
          m_profiles(profiles),
          m_olds(defectCodes(pair.oldEdition, oldList)),
          m_news(defectCodes(pair.newEdition, newList))
    {
    }

    void compare();

private:
    ChangeDraft &add(Change change, const ListEntry *before, const ListEntry *after);
    void compareTexts(const ListEntry &before, const ListEntry &after);
    void tellRemoved(const ListEntry &before, const QString &newCode);

    EditionPair &m_pair;
    const ProfilePairs::Set m_profiles;
    const std::vector<ListEntry> m_olds;
    const std::vector<ListEntry> m_news;
};

void DefectCodesComparison::compare()
{
    const EntryPairs pairs = pairEntries(m_olds, m_news);
    for (const auto [oldCode, newCode] : pairs.same)
        compareTexts(m_olds[std::size_t(oldCode)], m_news[std::size_t(newCode)]);
    for (const int code : pairs.removed)
        tellRemoved(m_olds[std::size_t(code)], QString());
    for (const auto [oldCode, newCode] : pairs.renamed) {
        const ListEntry &after = m_news[std::size_t(newCode)];
        tellRemoved(m_olds[std::size_t(oldCode)],
                    m_pair.newEdition.string(after.record, ListItemToken::LIST_Internal));
        add(Change::DefectCodeAdded, nullptr, &after).told.message = QStringLiteral("defect code added");
    }
    for (const int code : pairs.added)
        add(Change::DefectCodeAdded, nullptr, &m_news[std::size_t(code)]).told.message =
            QStringLiteral("defect code added");
}

ChangeDraft &DefectCodesComparison::add(Change change, const ListEntry *before, const ListEntry *after)
{
    const Edition &olds = m_pair.oldEdition;
    const Edition &news = m_pair.newEdition;
    ChangeDraft &draft = m_pair.report.add(change);
    draft.profiles = m_profiles;
    draft.place.area = ReportPlace::DefectCodes;
    draft.place.value = after ? after->sortOrder : before->sortOrder;
    draft.told.value = after ? news.string(after->record, ListItemToken::LIST_Internal)
                             : olds.string(before->record, ListItemToken::LIST_Internal);
    draft.told.subject = QStringLiteral("defect code ") + shown(draft.told.value);
    if (before) {
        draft.told.oldText = olds.string(before->record, ListItemToken::LIST_Item);
        draft.told.oldPlace = olds.placeOf(before->record);
    }
    if (after) {
        draft.told.newText = news.string(after->record, ListItemToken::LIST_Item);
        draft.told.newPlace = news.placeOf(after->record);
    }
    return draft;
}

void DefectCodesComparison::compareTexts(const ListEntry &before, const ListEntry &after)
{
    m_pair.records.push_back({before.record, after.record});
    if (before.item == after.item)
        return;
    const bool isReused = meanSomethingElse(m_pair.oldEdition.text(before.record, ListItemToken::LIST_Item),
                                            m_pair.newEdition.text(after.record, ListItemToken::LIST_Item));
    ChangeDraft &draft =
        add(isReused ? Change::DefectCodeReused : Change::DefectCodeTextChanged, &before, &after);
    const QString texts = fromTo(draft.told.oldText, draft.told.newText);
    draft.told.message =
        isReused ? QStringLiteral("used for something else: ") + texts : QStringLiteral("text ") + texts;
}

void DefectCodesComparison::tellRemoved(const ListEntry &before, const QString &newCode)
{
    ChangeDraft &draft = add(Change::DefectCodeRemoved, &before, nullptr);
    draft.told.message = QStringLiteral("defect code removed");
    if (newCode.isEmpty())
        return;
    draft.told.message += QStringLiteral("; %1 has its text now").arg(shown(newCode));
    for (const int profile : m_profiles)
        m_pair.addRename(CatalogRename::DefectCode, CatalogRename::Likely, draft.told.value, newCode, profile,
                         QStringLiteral("LC_ID_CD"));
}

} // namespace

// Thousands of profiles may share thousands of codes.
void findDefectCodeChanges(EditionPair &pair)
{
    struct Variant
    {
        EditionPair::Records lists;
        ProfilePairs::Set profiles;
    };
    const auto valuesOf = [](const Edition &edition, int list) {
        return list < 0 ? -1 : valuesKey(edition.check(), list);
    };
    std::map<std::pair<qint64, qint64>, Variant> variants;
    for (int number = 0; number < int(pair.profiles.profiles().size()); ++number) {
        if (!pair.isCompared(number))
            continue;
        const ProfilePairs::Profile &profile = pair.profiles.profile(number);
        const EditionPair::Records lists = {defectList(pair.oldEdition, profile.oldSymbol),
                                            defectList(pair.newEdition, profile.newSymbol)};
        if (lists.oldRecord >= 0 && lists.newRecord >= 0)
            pair.records.push_back(lists);
        const auto values = std::make_pair(valuesOf(pair.oldEdition, lists.oldRecord),
                                           valuesOf(pair.newEdition, lists.newRecord));
        variants.insert({values, {lists, {}}}).first->second.profiles.append(number);
    }
    for (const auto &[values, found] : variants)
        DefectCodesComparison(pair, found.profiles, found.lists.oldRecord, found.lists.newRecord).compare();
}

} // namespace Orvida::Checking
