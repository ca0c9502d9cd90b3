#include "checking/comparison/ListEntries_p.h"

#include "checking/comparison/EqualPairs_p.h"
#include "checking/rules/ListValues_p.h"

#include <algorithm>
#include <tuple>

namespace Orvida::Checking {

std::vector<ListEntry> entriesByValue(const Edition &edition, int record)
{
    std::vector<ListEntry> all;
    if (record < 0)
        return all;
    const ValueChoice choice = valueChoice(edition.check(), record);
    for (const int member : entriesOf(edition.check(), record)) {
        ListEntry entry;
        entry.value = edition.common(listValue(edition.check(), choice, member));
        entry.caption = edition.value(member, ListItemToken::LIST_Caption);
        entry.item = edition.value(member, ListItemToken::LIST_Item);
        entry.sortOrder = edition.catalog().number(member, ListItemToken::LIST_SortOrder);
        entry.record = member;
        all.push_back(entry);
    }
    std::sort(all.begin(), all.end(), [](const ListEntry &a, const ListEntry &b) {
        return std::tie(a.value, a.sortOrder, a.caption, a.item)
               < std::tie(b.value, b.sortOrder, b.caption, b.item);
    });
    std::vector<ListEntry> entries;
    for (const ListEntry &entry : all) {
        if (!entries.empty() && entries.back().value == entry.value)
            ++entries.back().count;
        else
            entries.push_back(entry);
    }
    // What is renamed is paired in this order, which must not depend on the order of records.
    std::sort(entries.begin(), entries.end(), [&](const ListEntry &a, const ListEntry &b) {
        return edition.text(listValue(edition.check(), choice, a.record))
               < edition.text(listValue(edition.check(), choice, b.record));
    });
    return entries;
}

EntryPairs pairEntries(const std::vector<ListEntry> &olds, const std::vector<ListEntry> &news)
{
    EntryPairs pairs;
    for (int entry = 0; entry < int(olds.size()); ++entry)
        pairs.removed.push_back(entry);
    for (int entry = 0; entry < int(news.size()); ++entry)
        pairs.added.push_back(entry);
    const auto pairBy = [&](auto featureOf, std::vector<EntryPairs::Pair> &found) {
        pairEqual(
            pairs.removed, pairs.added, [&](int entry) { return featureOf(olds[std::size_t(entry)]); },
            [&](int entry) { return featureOf(news[std::size_t(entry)]); },
            [&](int oldEntry, int newEntry) {
                found.push_back({oldEntry, newEntry});
            });
    };
    const auto byText = [](Edition::Text caption, Edition::Text item) {
        return Feature({quint64(caption), quint64(item), 0});
    };
    pairBy([](const ListEntry &entry) { return Feature({quint64(entry.value), 0, 0}); }, pairs.same);
    pairBy(
        [&](const ListEntry &entry) {
            return entry.caption == 0 || entry.item == 0 ? Feature() : byText(entry.caption, entry.item);
        },
        pairs.renamed);
    pairBy([&](const ListEntry &entry) { return entry.item == 0 ? Feature() : byText(0, entry.item); },
           pairs.renamed);
    pairBy([&](const ListEntry &entry) { return entry.caption == 0 ? Feature() : byText(entry.caption, 0); },
           pairs.renamed);
    return pairs;
}

} // namespace Orvida::Checking
