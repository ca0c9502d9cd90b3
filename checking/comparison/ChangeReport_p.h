// Gathers the changes of one comparison. For the comparison's own use.
#pragma once

#include "checking/CatalogChange.h"
#include "checking/comparison/ChangeTable_p.h"
#include "checking/comparison/ProfilePairs_p.h"

#include <QVector>

#include <array>
#include <vector>

namespace Orvida::Checking {

/// Where a change belongs in the report: in the tree of the new edition, or after it.
struct ReportPlace
{
    enum Area { Whole, Tree, Columns, Lists, DefectCodes, Rest };

    Area area = Whole;
    /// In the tree: the position of the item, or of the one that it came after in the old edition.
    int position = 0;
    /// Of a removed item, which comes after that one: its position in the old edition, from 1.
    int removed = 0;
    /// Order of values within a list.
    int value = 0;
};

/// A change before it has its place.
struct ChangeDraft
{
    Change change = Change::Count;
    CatalogChange told;
    ReportPlace place;
    /// The profiles that it concerns.
    ProfilePairs::Set profiles;
    /// Of a change to a list: the number of the list among those that fields use.
    int usedList = -1;
};

/// Takes the changes that are found; joins those that differ in their profiles only, and puts them in order.
class ChangeReport
{
public:
    /// Adds a change of the class of its kind. It can be filled in until the next call.
    ChangeDraft &add(Change change);
    /// The same in another class.
    ChangeDraft &add(Change change, CatalogChangeClass changeClass);

    /// To be called when all changes are there. Calls `complete` with each change to a list that fields use.
    template <typename Complete>
    QVector<CatalogChange> finish(const ProfilePairs &profiles, Complete complete)
    {
        join();
        for (ChangeDraft &draft : m_drafts) {
            if (draft.usedList >= 0)
                complete(draft);
        }
        return ordered(profiles);
    }
    bool hasVisible() const;

private:
    void join();
    QVector<CatalogChange> ordered(const ProfilePairs &profiles);

    std::vector<ChangeDraft> m_drafts;
};

} // namespace Orvida::Checking
