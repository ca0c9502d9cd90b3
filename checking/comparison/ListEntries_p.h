// The entries of a list, by what is recorded of them. For the comparison's own use.
#pragma once

#include "checking/comparison/Edition_p.h"

#include <vector>

namespace Orvida::Checking {

/// An entry of a list that can be chosen.
struct ListEntry
{
    using Text = Edition::Text;

    Text value = 0;
    /// Several entries may have one value: the first in the order of the list stands for them.
    Text caption = 0;
    Text item = 0;
    int sortOrder = 0;
    int record = -1;
    int count = 1;
};

/// The entries of the list `record` by their values, one for each; none for a record that is missing.
std::vector<ListEntry> entriesByValue(const Edition &edition, int record);

/// What two lists have in common, by numbers of entries; the others are known by their texts, or not at all.
struct EntryPairs
{
    struct Pair
    {
        int oldEntry;
        int newEntry;
    };
    std::vector<Pair> same;
    std::vector<Pair> renamed;
    std::vector<int> removed;
    std::vector<int> added;
};

/// Pairs entries by value; what is left by caption and item text, by item text, and by caption.
EntryPairs pairEntries(const std::vector<ListEntry> &olds, const std::vector<ListEntry> &news);

} // namespace Orvida::Checking
