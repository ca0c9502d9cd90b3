#include "checking/comparison/ProfilePairs_p.h"

#include "checking/comparison/EqualPairs_p.h"

#include <algorithm>
#include <iterator>

namespace Orvida::Checking {

namespace {

// How many profiles of each edition are compared by their columns.
constexpr std::size_t mostComparedByColumns = 100;

// Whether at least 80 percent of the columns of either profile are those of the other.
template <typename Columns>
bool haveSameColumns(const Columns &a, const Columns &b)
{
    Columns shared;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(shared));
    const std::size_t most = std::max(a.size(), b.size());
    return most > 0 && shared.size() * 5 >= most * 4;
}

} // namespace

ProfilePairs::ProfilePairs(const Edition &oldEdition, const Edition &newEdition)
    : m_old(oldEdition), m_new(newEdition)
{
    const Knowns olds = profilesOf(m_old);
    const Knowns news = profilesOf(m_new);
    QHash<Text, Text> newKeys;
    for (const Known &profile : news)
        newKeys.insert(profile.key, profile.key);
    pairRenamed(olds, news, newKeys);
    fill(olds, news, newKeys);
}

QString ProfilePairs::nameOf(int number) const
{
    const Profile &known = profile(number);
    return known.newKey != 0 ? m_new.text(known.newSymbol).toString() : oldNameOf(number);
}

QString ProfilePairs::oldNameOf(int number) const
{
    return m_old.text(profile(number).oldSymbol).toString();
}

// In the order of their sort orders; those that no record defines come last.
ProfilePairs::Knowns ProfilePairs::profilesOf(const Edition &edition)
{
    Knowns knowns;
    QHash<Text, int> places;
    const auto add = [&](int record, auto token) -> Known & {
        const Symbol symbol = edition.catalog().value(record, token);
        const Text key = edition.common(symbol);
        if (!places.contains(key)) {
            places.insert(key, int(knowns.size()));
            knowns.emplace_back();
            knowns.back().key = key;
            knowns.back().symbol = symbol;
        }
        return knowns[std::size_t(places.value(key))];
    };
    edition.check().forEachRecord(Section::CATPRO, [&](int record) {
        Known &known = add(record, ProfileToken::PRO_PK);
        known.record = record;
        known.sortOrder = edition.catalog().number(record, ProfileToken::PRO_SortOrder);
    });
    edition.links().columns().forEach([&](const Groups::Members &records) {
        for (const int record : records)
            add(record, ColumnToken::COL_Profile_FK).columns.push_back(edition.common(Symbol(records.key())));
    });
    edition.links().lists().forEach([&](const Groups::Members &records) {
        for (const int record : records)
            add(record, ListClassToken::LC_Profile_FK);
    });
    for (Known &known : knowns)
        std::sort(known.columns.begin(), known.columns.end());
    std::sort(knowns.begin(), knowns.end(), [&](const Known &a, const Known &b) {
        if ((a.record < 0) != (b.record < 0))
            return b.record < 0;
        return a.sortOrder != b.sortOrder ? a.sortOrder < b.sortOrder
                                          : edition.text(a.symbol) < edition.text(b.symbol);
    });
    return knowns;
}

// By format and type of export, then by columns. `newKeys` gives the new key for a key.
void ProfilePairs::pairRenamed(const Knowns &olds, const Knowns &news, QHash<Text, Text> &newKeys) const
{
    std::vector<int> freeOlds;
    std::vector<int> freeNews;
    QHash<Text, bool> oldKeys;
    for (int index = 0; index < int(olds.size()); ++index) {
        oldKeys.insert(olds[std::size_t(index)].key, true);
        if (!newKeys.contains(olds[std::size_t(index)].key))
            freeOlds.push_back(index);
    }
    for (int index = 0; index < int(news.size()); ++index) {
        if (!oldKeys.contains(news[std::size_t(index)].key))
            freeNews.push_back(index);
    }
    const auto pair = [&](int oldOne, int newOne) {
        newKeys.insert(olds[std::size_t(oldOne)].key, news[std::size_t(newOne)].key);
    };
    const auto exchangeOf = [](const Edition &edition, const Known &known) {
        const auto format = quint64(edition.value(known.record, ProfileToken::PRO_Format));
        const auto type = quint64(edition.value(known.record, ProfileToken::PRO_ExportType));
        return format == 0 && type == 0 ? Feature() : Feature({format, type, 0});
    };
    pairEqual(
        freeOlds, freeNews, [&](int index) { return exchangeOf(m_old, olds[std::size_t(index)]); },
        [&](int index) { return exchangeOf(m_new, news[std::size_t(index)]); }, pair);
    freeNews.resize(std::min(freeNews.size(), mostComparedByColumns));
    freeOlds.resize(std::min(freeOlds.size(), mostComparedByColumns));
    for (const int oldOne : freeOlds) {
        const auto newOne = std::find_if(freeNews.begin(), freeNews.end(), [&](int candidate) {
            return haveSameColumns(olds[std::size_t(oldOne)].columns, news[std::size_t(candidate)].columns);
        });
        if (newOne == freeNews.end())
            continue;
        pair(oldOne, *newOne);
        freeNews.erase(newOne);
    }
}

void ProfilePairs::fill(const Knowns &olds, const Knowns &news, const QHash<Text, Text> &newKeys)
{
    for (const Known &known : news) {
        m_numbersOfNew.insert(known.key, int(m_profiles.size()));
        Profile profile;
        profile.newKey = known.key;
        profile.newSymbol = known.symbol;
        profile.newRecord = known.record;
        m_profiles.push_back(profile);
    }
    for (const Known &known : olds) {
        int number = m_numbersOfNew.value(newKeys.value(known.key, known.key), -1);
        if (number < 0) {
            number = int(m_profiles.size());
            m_profiles.emplace_back();
        }
        m_numbersOfOld.insert(known.key, number);
        Profile &profile = m_profiles[std::size_t(number)];
        profile.oldKey = known.key;
        profile.oldSymbol = known.symbol;
        profile.oldRecord = known.record;
    }
}

} // namespace Orvida::Checking
