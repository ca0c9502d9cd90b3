// Which profiles of two editions are the same. For the comparison's own use.
#pragma once

#include "checking/comparison/Edition_p.h"

#include <QHash>
#include <QVector>

#include <vector>

namespace Orvida::Checking {

/// Pairs the profiles of two editions one to one: by their keys, then those that were renamed. Profiles are
/// those that the file defines, and those that it only files columns or lists under.
class ProfilePairs
{
public:
    using Text = Edition::Text;

    /// Profiles by their number here, in ascending order. Copies share their data: thousands of changes may
    /// concern the same thousands of profiles.
    using Set = QVector<int>;

    struct Profile
    {
        /// Keys in the editions; 0 where there is no such profile.
        Text oldKey = 0;
        Text newKey = 0;
        /// The same as numbers of the editions' own texts.
        Symbol oldSymbol = 0;
        Symbol newSymbol = 0;
        /// Records that define it; -1 where none does.
        int oldRecord = -1;
        int newRecord = -1;

        bool isInBoth() const { return oldKey != 0 && newKey != 0; }
        bool isRenamed() const { return isInBoth() && oldKey != newKey; }
        /// A profile that loses its definition is as good as none.
        bool isRemoved() const { return oldKey != 0 && (newKey == 0 || (oldRecord >= 0 && newRecord < 0)); }
        bool isAdded() const { return newKey != 0 && (oldKey == 0 || (newRecord >= 0 && oldRecord < 0)); }
        /// Whether what the editions say of it is compared.
        bool isCompared() const { return !isRemoved() && !isAdded(); }
    };

    ProfilePairs(const Edition &oldEdition, const Edition &newEdition);

    /// In the order of the new edition; what that one does not have comes last.
    const std::vector<Profile> &profiles() const { return m_profiles; }
    const Profile &profile(int number) const { return m_profiles[std::size_t(number)]; }
    /// The number of a profile by its key in an edition; -1 for an unknown one.
    int withOldKey(Text key) const { return m_numbersOfOld.value(key, -1); }
    int withNewKey(Text key) const { return m_numbersOfNew.value(key, -1); }
    /// By which a message names it: its key in the new edition, or in the old one.
    QString nameOf(int number) const;
    QString oldNameOf(int number) const;

private:
    /// A profile of one edition.
    struct Known
    {
        Text key = 0;
        Symbol symbol = 0;
        int record = -1;
        int sortOrder = 0;
        std::vector<Text> columns;
    };
    using Knowns = std::vector<Known>;

    static Knowns profilesOf(const Edition &edition);
    void pairRenamed(const Knowns &olds, const Knowns &news, QHash<Text, Text> &newKeys) const;
    void fill(const Knowns &olds, const Knowns &news, const QHash<Text, Text> &newKeys);

    const Edition &m_old;
    const Edition &m_new;
    std::vector<Profile> m_profiles;
    QHash<Text, int> m_numbersOfOld;
    QHash<Text, int> m_numbersOfNew;
};

} // namespace Orvida::Checking
