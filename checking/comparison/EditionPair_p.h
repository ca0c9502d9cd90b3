// Two editions and what is the same in them. For the comparison's own use.
#pragma once

#include "checking/comparison/ChangeReport_p.h"
#include "checking/comparison/Edition_p.h"
#include "checking/comparison/ItemPairs_p.h"
#include "checking/comparison/ProfilePairs_p.h"

#include <QString>
#include <QVector>

#include <vector>

namespace Orvida::Checking {

/// What those who look for changes look at, and where they put what they find.
class EditionPair
{
public:
    /// Records that are the same in both.
    struct Records
    {
        int oldRecord;
        int newRecord;
    };

    /// What concerns other profiles than `onlyProfile` is left out, unless it is null.
    EditionPair(const Edition &oldEdition, const Edition &newEdition, const QString &onlyProfile);

    /// Whether the profile is in both editions, and asked for.
    bool isCompared(int profile) const { return m_isCompared[std::size_t(profile)]; }
    bool isAsked(int profile) const;

    /// Where an item of the new edition has its place; and one of the old edition that is gone.
    ReportPlace placeOfNew(int item) const;
    ReportPlace placeOfRemoved(int oldItem) const;

    /// Adds a change to an item of the new edition, or of the old one when it is `missing` in the new one.
    ChangeDraft &addToItem(Change change, CatalogChangeClass changeClass, int oldItem, int newItem);
    ChangeDraft &addToItem(Change change, int oldItem, int newItem);
    /// Adds what is the same but for its name.
    void addRename(CatalogRename::Kind kind, CatalogRename::Certainty certainty, const QString &oldName,
                   const QString &newName, int profile = -1, const QString &list = QString());

    const Edition &oldEdition;
    const Edition &newEdition;
    const ItemPairs items;
    const ProfilePairs profiles;
    ChangeReport report;
    QVector<CatalogRename> renames;
    std::vector<Records> records;

private:
    void placeRemovedItems();

    const QString m_onlyProfile;
    std::vector<bool> m_isCompared;
    /// By item of the old edition: the position in the new tree that it came after.
    std::vector<int> m_anchors;
};

/// "mm → cm", or "none → “m, cm”" when there are other characters than letters and digits in them.
QString fromTo(QStringView oldText, QStringView newText);

} // namespace Orvida::Checking
