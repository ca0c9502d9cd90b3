// The one ordering of the library: by sort order, for child items, input fields and list entries alike.
// A header of templates for the library's own use.
#pragma once

#include <QList>

namespace Orvida::Catalogs {

/// Orders lists by sort order, ascending, with the quicksort that Qt 5's `qSort` uses.
///
/// That quicksort is not stable, and where it puts elements of equal sort order is part of what hosts see,
/// show and store. So its steps are kept exactly, down to the comparisons, and no other sort can take its
/// place. Unlike `qSort`, it recurses into the smaller part only; parts are ordered independently of each
/// other, so the result is the same, and no input can make the stack deeper than the logarithm of the list's
/// length. The time can be quadratic in that length, for sort orders chosen to make it so.
template <typename Element, typename SortOrderOf>
class SortOrdering
{
public:
    SortOrdering(QList<Element> &list, SortOrderOf sortOrderOf) : m_list(list), m_sortOrderOf(sortOrderOf) {}

    /// Orders the elements from `start` up to, not including, `end`.
    void order(int start, int end)
    {
        while (end - start >= 2) {
            const int pivot = partition(start, end);
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
    bool isLess(int a, int b) const { return m_sortOrderOf(m_list.at(a)) < m_sortOrderOf(m_list.at(b)); }

    // Exchanges two elements, which QList does without copying them.
    void swap(int a, int b) { m_list.swapItemsAt(a, b); }

    // Puts the median of first, middle and last element to where it belongs, smaller elements before it
    // and greater ones behind it, and gives its place; -1 when that has ordered the whole range.
    int partition(int start, int end)
    {
        const int span = end - start;
        const int last = end - 1;
        const int pivot = start + span / 2;
        if (isLess(last, start))
            swap(last, start);
        if (span == 2)
            return -1;
        if (isLess(pivot, start))
            swap(pivot, start);
        if (isLess(last, pivot))
            swap(last, pivot);
        if (span == 3)
            return -1;
        swap(pivot, last);
        return place(start, last);
    }

    // Divides the elements from `start` up to the one before `last`, which holds the pivot.
    int place(int start, int last)
    {
        int low = start;
        int high = last - 1;
        while (low < high) {
            while (low < high && isLess(low, last))
                ++low;
            while (high > low && isLess(last, high))
                --high;
            if (low >= high)
                break;
            swap(low, high);
            ++low;
            --high;
        }
        if (isLess(low, last))
            ++low;
        swap(last, low);
        return low;
    }

    QList<Element> &m_list;
    const SortOrderOf m_sortOrderOf;
};

/// Orders `list` in place by what `sortOrderOf` gives for an element. See `SortOrdering`.
template <typename Element, typename SortOrderOf>
void orderBySortOrder(QList<Element> &list, SortOrderOf sortOrderOf)
{
    SortOrdering<Element, SortOrderOf>(list, sortOrderOf).order(0, list.size());
}

} // namespace Orvida::Catalogs
