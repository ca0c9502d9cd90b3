#include "checking/comparison/Similarity_p.h"

#include <algorithm>

namespace Orvida::Checking {

namespace {

constexpr int leastLetters = 4;
constexpr double leastSameMeaning = 0.4;

std::size_t sharedCount(const std::vector<quint32> &a, const std::vector<quint32> &b)
{
    std::size_t count = 0;
    auto first = a.begin();
    auto second = b.begin();
    while (first != a.end() && second != b.end()) {
        const quint32 least = std::min(*first, *second);
        count += *first == *second;
        first += *first == least;
        second += *second == least;
    }
    return count;
}

} // namespace

ComparableText::ComparableText(QStringView text)
{
    const QString letters = text.toString().normalized(QString::NormalizationForm_KD).toCaseFolded();
    for (const QChar letter : letters) {
        if (letter.category() != QChar::Mark_NonSpacing)
            m_folded += letter;
    }
    m_folded = m_folded.simplified();
    for (int index = 1; index < m_folded.size(); ++index)
        m_pairs.push_back(quint32(m_folded.at(index - 1).unicode()) << 16 | m_folded.at(index).unicode());
    std::sort(m_pairs.begin(), m_pairs.end());
}

double ComparableText::similarityTo(const ComparableText &other) const
{
    if (m_folded == other.m_folded)
        return 1;
    if (std::min(m_folded.size(), other.m_folded.size()) < leastLetters)
        return 0;
    return 2.0 * double(sharedCount(m_pairs, other.m_pairs)) / double(m_pairs.size() + other.m_pairs.size());
}

bool meanSomethingElse(QStringView a, QStringView b)
{
    return ComparableText(a).similarityTo(ComparableText(b)) < leastSameMeaning;
}

} // namespace Orvida::Checking
