// How much two texts resemble each other. For the comparison's own use.
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace Orvida::Checking {

/// A text made ready to be compared with many others. Letter case, accents and the kind of white space do not
/// matter.
class ComparableText
{
public:
    explicit ComparableText(QStringView text);

    /// Twice the number of pairs of letters that both texts have, divided by the number of all: from 0 to 1.
    /// Texts of less than four letters are equal (1) or not (0).
    double similarityTo(const ComparableText &other) const;
    /// Without accents, in one letter case.
    const QString &folded() const { return m_folded; }

private:
    QString m_folded;
    /// Neighbouring letters, sorted.
    std::vector<quint32> m_pairs;
};

/// Whether texts differ so much that they probably mean something else.
bool meanSomethingElse(QStringView a, QStringView b);

} // namespace Orvida::Checking
