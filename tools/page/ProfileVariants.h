// What several profiles have of one thing: equal ones together, each in the order of its profile.
#pragma once

#include "tools/page/HtmlWriter.h"
#include "tools/page/PageSource.h"

#include <QVector>

namespace Orvida::Tools {

/// Something with the numbers of the profiles that have it, ascending.
template <typename Thing>
struct Variant
{
    Thing thing;
    QVector<int> profiles;
};

/// Merges the things of one profile after the other into one sequence. Those of each profile keep their order
/// in it; things that are the same share a place where the order allows it.
template <typename Thing>
class ProfileVariants
{
public:
    /// Adds the next thing of `profile`. `isSame(a, b)` tells whether two things are one.
    template <typename IsSame>
    Variant<Thing> &add(int profile, const Thing &thing, IsSame isSame)
    {
        if (profile != m_profile)
            m_next = 0;
        m_profile = profile;
        int place = m_next;
        while (place < m_variants.size() && !isSame(m_variants.at(place).thing, thing))
            ++place;
        if (place == m_variants.size()) {
            place = m_next;
            m_variants.insert(place, {thing, {}});
        }
        m_next = place + 1;
        m_variants[place].profiles.append(profile);
        return m_variants[place];
    }

    const QVector<Variant<Thing>> &variants() const { return m_variants; }

private:
    QVector<Variant<Thing>> m_variants;
    int m_profile = -1;
    int m_next = 0;
};

/// Writes the attribute by which a script knows the profiles; nothing when they are `all`.
void writeProfiles(const QVector<int> &profiles, const QVector<int> &all, HtmlWriter &out);

/// Writes the names of the profiles, for readers without script; nothing when they are `all`.
void writeProfileNames(const QVector<int> &profiles, const QVector<int> &all, const PageSource &source,
                       HtmlWriter &out);

/// The numbers from 0 to before `count`.
QVector<int> allProfiles(int count);

} // namespace Orvida::Tools
