#include "checking/findings/NearName_p.h"

#include <QChar>

#include <algorithm>

namespace Orvida::Checking {

namespace {

// Longer names are no typing mistakes of each other.
constexpr int longestName = 100;
constexpr int farthest = 2;

bool isSameLetter(QChar a, QChar b)
{
    return a == b || a.toCaseFolded() == b.toCaseFolded();
}

bool isFiller(QChar letter)
{
    return letter.isSpace() || letter == QLatin1Char('-') || letter == QLatin1Char('_');
}

// Whether the two differ in nothing but letter case and fillers.
bool isSameName(QStringView a, QStringView b)
{
    const QChar *first = a.begin();
    const QChar *second = b.begin();
    while (true) {
        first = std::find_if_not(first, a.end(), isFiller);
        second = std::find_if_not(second, b.end(), isFiller);
        if (first == a.end() || second == b.end())
            return first == a.end() && second == b.end();
        if (!isSameLetter(*first++, *second++))
            return false;
    }
}

// Number of letters to insert, remove, replace or swap with the next one to get from `a` to `b`; more than
// `most` when there are more.
int editDistance(QStringView a, QStringView b, int most)
{
    const auto parted = std::mismatch(a.begin(), a.end(), b.begin(), b.end(), isSameLetter);
    a = a.mid(parted.first - a.begin());
    b = b.mid(parted.second - b.begin());
    if (a.isEmpty() || b.isEmpty())
        return int(a.size() + b.size());
    if (most == 0)
        return 1;
    const bool isSwapped =
        a.size() > 1 && b.size() > 1 && isSameLetter(a.at(0), b.at(1)) && isSameLetter(a.at(1), b.at(0));
    const int least = std::min({editDistance(a.mid(1), b.mid(1), most - 1),
                                editDistance(a.mid(1), b, most - 1), editDistance(a, b.mid(1), most - 1)});
    return 1 + (isSwapped ? std::min(least, editDistance(a.mid(2), b.mid(2), most - 1)) : least);
}

} // namespace

NearName::NearName(QStringView wanted)
    : m_wanted(wanted), m_distance(std::min(farthest, int(wanted.size()) / 3) + 1)
{
}

void NearName::offer(QStringView name)
{
    if (m_wanted.isEmpty() || name.isEmpty() || std::max(name.size(), m_wanted.size()) > longestName)
        return;
    const int difference = int(qAbs(name.size() - m_wanted.size()));
    const int distance = isSameName(m_wanted, name) ? 0
                         : difference >= m_distance ? m_distance
                                                    : editDistance(m_wanted, name, m_distance - 1);
    if (distance >= m_distance)
        return;
    m_nearest = name.toString();
    m_distance = distance;
}

} // namespace Orvida::Checking
