// The one ordering of the library: by sort order, for child items, input fields and list entries alike.
// A header of templates for the library's own use.
#pragma once

#include "catalogs/model/SortOrderSearch_p.h"

#include <QList>
#include <QtAlgorithms>

#include <new>

namespace Orvida::Catalogs {

/// Orders lists by sort order, ascending, with the quicksort that Qt 5's `qSort` uses.
///
/// That quicksort is not stable, and where it puts elements of equal sort order is part of what hosts see,
/// show and store. So its exchanges are kept exactly, and no other sort can take its place. Unlike `qSort`,
/// it recurses into the smaller part only; parts are ordered independently of each other, so the result is
/// the same, and no input can make the stack deeper than the logarithm of the list's length.
///
/// Sort orders can be chosen so that every part is hardly shorter than the one before, which makes the
/// quicksort quadratic. So once a list has cost several times as much as usual, the next exchange is found
/// through a tree of the sort orders instead of element by element. The exchanges stay the same, and a part
/// has no more of them than its smaller half has elements: a million elements stay a matter of seconds.
template <typename Element, typename SortOrderOf>
class SortOrdering
{
public:
    /// Searches the tree after having looked at `budget` elements.
    SortOrdering(QList<Element> &list, SortOrderOf sortOrderOf, qint64 budget)
        : m_list(list), m_sortOrderOf(sortOrderOf), m_budget(budget)
    {
    }

    /// Orders the elements from `start` up to, not including, `end`.
    void order(int start, int end)
    {
        while (end - start >= 2) {
            spend(end - start);
            const int pivot = m_search.isEmpty() ? partition<false>(start, end) : partition<true>(start, end);
            if (pivot < 0)
                return;
            if (pivot - start < end - (pivot + 1)) {
                order(start, pivot);
                start = pivot + 1;
            } else {
                order(pivot + 1, end);
                end = pivot;
            }
        }
    }

private:
    int sortOrderAt(int place) const { return m_sortOrderOf(m_list.at(place)); }

    bool isLess(int a, int b) const { return sortOrderAt(a) < sortOrderAt(b); }

    // Exchanges two elements, which QList does without copying them.
    template <bool isSearching>
    void swap(int a, int b)
    {
        m_list.swapItemsAt(a, b);
        if constexpr (isSearching)
            m_search.swap(a, b);
    }

    void spend(int count)
    {
        const bool wasLeft = m_budget >= 0;
        m_budget -= count;
        if (!wasLeft || m_budget >= 0)
            return;
        try {
            m_search.build(m_list.size(), [this](int place) { return sortOrderAt(place); });
        } catch (const std::bad_alloc &) {
            // No memory for the tree: the list is ordered without it, slowly.
        }
    }

    // The first place from `low` to `high` whose element is not less than the one at `last`, or `high`.
    template <bool isSearching>
    int skipLess(int low, int high, int last) const
    {
        if constexpr (isSearching)
            return low < high ? qMin(high, m_search.nextNotLess(low, sortOrderAt(last))) : low;
        while (low < high && isLess(low, last))
            ++low;
        return low;
    }

    // The last place from `high` down to `low` whose element is not greater than the one at `last`, or `low`.
    template <bool isSearching>
    int skipGreater(int low, int high, int last) const
    {
        if constexpr (isSearching)
            return low < high ? qMax(low, m_search.previousNotGreater(high, sortOrderAt(last))) : high;
        while (high > low && isLess(last, high))
            --high;
        return high;
    }

    // Puts the median of first, middle and last element where it belongs, smaller elements before it
    // and greater ones after it, and returns its place; -1 when that has ordered the whole range.
    template <bool isSearching>
    int partition(int start, int end)
    {
        const int span = end - start;
        const int last = end - 1;
        const int pivot = start + span / 2;
        if (isLess(last, start))
            swap<isSearching>(last, start);
        if (span == 2)
            return -1;
        if (isLess(pivot, start))
            swap<isSearching>(pivot, start);
        if (isLess(last, pivot))
            swap<isSearching>(last, pivot);
        if (span == 3)
            return -1;
        swap<isSearching>(pivot, last);
        return place<isSearching>(start, last);
    }

    // Divides the elements from `start` up to the one before `last`, which holds the pivot.
    template <bool isSearching>
    int place(int start, int last)
    {
        int low = start;
        int high = last - 1;
        while (low < high) {
            low = skipLess<isSearching>(low, high, last);
            high = skipGreater<isSearching>(low, high, last);
            if (low >= high)
                break;
            swap<isSearching>(low, high);
            ++low;
            --high;
        }
        if (isLess(low, last))
            ++low;
        swap<isSearching>(last, low);
        return low;
    }

    QList<Element> &m_list;
    const SortOrderOf m_sortOrderOf;
    qint64 m_budget;
    // Empty while the budget lasts.
    SortOrderSearch m_search;
};

/// Orders `list` in place by what `sortOrderOf` gives for an element. See `SortOrdering`.
template <typename Element, typename SortOrderOf>
void orderBySortOrder(QList<Element> &list, SortOrderOf sortOrderOf)
{
    // Ordinary sort orders cost one to two times n log2(n) for n elements.
    const int halvings = 32 - static_cast<int>(qCountLeadingZeroBits(static_cast<quint32>(list.size())));
    const qint64 budget = Q_INT64_C(4) * list.size() * halvings;
    SortOrdering<Element, SortOrderOf>(list, sortOrderOf, budget).order(0, list.size());
}

} // namespace Orvida::Catalogs
