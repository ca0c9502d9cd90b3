// Finds what is the same in two editions. For the comparison's own use.
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace Orvida::Checking {

/// What must be equal of two things that are taken for the same, as numbers; none when it says nothing.
using Feature = std::optional<std::array<quint64, 3>>;

/// Members of a list by their features, in the order of the list where these are equal.
template <typename FeatureOf>
std::vector<std::pair<Feature, std::size_t>> byFeature(const std::vector<int> &list, FeatureOf featureOf)
{
    std::vector<std::pair<Feature, std::size_t>> result;
    for (std::size_t place = 0; place < list.size(); ++place) {
        const Feature feature = featureOf(list[place]);
        if (feature)
            result.emplace_back(feature, place);
    }
    std::sort(result.begin(), result.end());
    return result;
}

/// Removes what was marked.
inline void removeMarked(std::vector<int> &list, int mark)
{
    list.erase(std::remove(list.begin(), list.end(), mark), list.end());
}

/// Pairs members of two lists that have equal features, one to one, in the order of the lists; takes the
/// pairs out of them and calls `visit` with each. Members are not negative.
template <typename OldFeature, typename NewFeature, typename Visit>
void pairEqual(std::vector<int> &olds, std::vector<int> &news, OldFeature oldFeature, NewFeature newFeature,
               Visit visit)
{
    constexpr int paired = -1;
    if (olds.empty() || news.empty())
        return;
    const auto oldOrder = byFeature(olds, oldFeature);
    const auto newOrder = byFeature(news, newFeature);
    auto oldOne = oldOrder.begin();
    auto newOne = newOrder.begin();
    while (oldOne != oldOrder.end() && newOne != newOrder.end()) {
        if (oldOne->first < newOne->first) {
            ++oldOne;
        } else if (newOne->first < oldOne->first) {
            ++newOne;
        } else {
            int &oldMember = olds[(oldOne++)->second];
            int &newMember = news[(newOne++)->second];
            visit(oldMember, newMember);
            oldMember = paired;
            newMember = paired;
        }
    }
    removeMarked(olds, paired);
    removeMarked(news, paired);
}

} // namespace Orvida::Checking
