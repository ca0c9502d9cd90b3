// Finds sort orders in a list without looking at each. For the ordering's own use.
#pragma once

#include <QtGlobal>

#include <limits>
#include <utility>
#include <vector>

namespace Orvida::Catalogs {

/// The smallest and the greatest sort order of ranges of a list, as a binary tree: finds the next place with
/// a sort order of some size in as many steps as the tree has levels.
class SortOrderSearch
{
public:
    bool isEmpty() const { return m_nodes.empty(); }

    /// Takes the sort orders `sortOrderAt(0)` up to, not including, `sortOrderAt(count)`.
    template <typename SortOrderAt>
    void build(int count, SortOrderAt sortOrderAt)
    {
        m_leaves = 1;
        while (m_leaves < count)
            m_leaves *= 2;
        std::vector<Node> nodes(2 * static_cast<std::size_t>(m_leaves));
        for (int place = 0; place < count; ++place)
            nodes[m_leaves + place] = {sortOrderAt(place), sortOrderAt(place)};
        m_nodes = std::move(nodes);
        for (int node = m_leaves - 1; node > 0; --node)
            update(node);
    }

    void swap(int a, int b)
    {
        std::swap(m_nodes[m_leaves + a], m_nodes[m_leaves + b]);
        for (const int place : {a, b}) {
            for (int node = (m_leaves + place) / 2; node > 0; node /= 2)
                update(node);
        }
    }

    /// The first place from `place` on whose sort order is not less than `sortOrder`; there must be one.
    int nextNotLess(int place, int sortOrder) const
    {
        return found(place, 1, [this, sortOrder](int node) { return m_nodes[node].greatest >= sortOrder; });
    }

    /// The last place up to `place` whose sort order is not greater than `sortOrder`; there must be one.
    int previousNotGreater(int place, int sortOrder) const
    {
        return found(place, 0, [this, sortOrder](int node) { return m_nodes[node].smallest <= sortOrder; });
    }

private:
    // The default matches no search: for places beyond the end of the list.
    struct Node
    {
        int smallest = std::numeric_limits<int>::max();
        int greatest = std::numeric_limits<int>::min();
    };

    void update(int node)
    {
        const int child = 2 * node;
        const Node &left = m_nodes[child];
        const Node &right = m_nodes[child + 1];
        m_nodes[node] = {qMin(left.smallest, right.smallest), qMax(left.greatest, right.greatest)};
    }

    // Goes up to the first range that holds what is searched for, on the side `direction` (1 to the right,
    // 0 to the left), and down again to the nearest place in it.
    template <typename Holds>
    int found(int place, int direction, Holds holds) const
    {
        int node = m_leaves + place;
        while (!holds(node)) {
            while (node % 2 == direction)
                node /= 2;
            node += direction ? 1 : -1;
        }
        while (node < m_leaves) {
            node = 2 * node + (direction ? 0 : 1);
            if (!holds(node))
                node ^= 1;
        }
        return node - m_leaves;
    }

    int m_leaves = 0;
    // The children of node n are 2n and 2n + 1; the places of the list are the last nodes.
    std::vector<Node> m_nodes;
};

} // namespace Orvida::Catalogs
