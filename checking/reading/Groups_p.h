// Numbers in groups. For the checker's own use.
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace Orvida::Checking {

/// Members, such as records, grouped by a number, such as a key. Sorted instead of hashed: the groups are
/// then always in the same order, and no choice of keys makes it slow.
class Groups
{
public:
    struct Entry
    {
        qint64 key;
        int member;
    };

    /// The members of a group, in ascending order.
    class Members
    {
    public:
        class Iterator
        {
        public:
            using iterator_category = std::input_iterator_tag;
            using value_type = int;
            using difference_type = std::ptrdiff_t;
            using pointer = const int *;
            using reference = int;

            explicit Iterator(const Entry *entry) : m_entry(entry) {}
            int operator*() const { return m_entry->member; }
            Iterator &operator++()
            {
                ++m_entry;
                return *this;
            }
            bool operator==(Iterator other) const { return m_entry == other.m_entry; }
            bool operator!=(Iterator other) const { return m_entry != other.m_entry; }

        private:
            const Entry *m_entry;
        };

        Members(const Entry *first, const Entry *last) : m_first(first), m_last(last) {}

        Iterator begin() const { return Iterator(m_first); }
        Iterator end() const { return Iterator(m_last); }
        int size() const { return int(m_last - m_first); }
        bool isEmpty() const { return m_first == m_last; }
        int first() const { return m_first->member; }
        int last() const { return (m_last - 1)->member; }
        int operator[](int index) const { return m_first[index].member; }
        qint64 key() const { return m_first->key; }

    private:
        const Entry *m_first;
        const Entry *m_last;
    };

    void add(qint64 key, int member) { m_entries.push_back({key, member}); }

    /// To be called when all members are there.
    void sort()
    {
        const auto isLess = [](const Entry &a, const Entry &b) {
            return a.key != b.key ? a.key < b.key : a.member < b.member;
        };
        if (!std::is_sorted(m_entries.begin(), m_entries.end(), isLess))
            std::sort(m_entries.begin(), m_entries.end(), isLess);
    }

    /// The members of the group `key`; none when there is no such group.
    Members of(qint64 key) const
    {
        const Entry *const end = m_entries.data() + m_entries.size();
        const Entry *const first = std::lower_bound(
            m_entries.data(), end, key, [](const Entry &entry, qint64 wanted) { return entry.key < wanted; });
        return {first, std::upper_bound(first, end, key, [](qint64 wanted, const Entry &entry) {
                    return wanted < entry.key;
                })};
    }

    /// Whether the group `key` has a member from `first` on that is less than `last`.
    bool hasBetween(qint64 key, int first, int last) const
    {
        const Members members = of(key);
        int low = 0;
        for (int high = members.size(); low < high;) {
            const int middle = low + (high - low) / 2;
            if (members[middle] < first)
                low = middle + 1;
            else
                high = middle;
        }
        return low < members.size() && members[low] < last;
    }

    /// Calls `visit` with the members of each group, by ascending keys.
    template <typename Visit>
    void forEach(Visit visit) const
    {
        const Entry *const end = m_entries.data() + m_entries.size();
        for (const Entry *first = m_entries.data(); first != end;) {
            const Entry *const last =
                std::find_if_not(first, end, [first](const Entry &entry) { return entry.key == first->key; });
            visit(Members(first, last));
            first = last;
        }
    }

private:
    std::vector<Entry> m_entries;
};

/// Two numbers as one key.
inline qint64 pairOf(int first, int second)
{
    return qint64(first) << 32 | quint32(second);
}

} // namespace Orvida::Checking
