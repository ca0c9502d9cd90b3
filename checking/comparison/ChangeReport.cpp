#include "checking/comparison/ChangeReport_p.h"

#include <QHash>
#include <QLatin1String>

#include <algorithm>
#include <iterator>
#include <tuple>

namespace Orvida::Checking {

namespace {

// What is equal in changes that are told as one.
auto substanceOf(const ChangeDraft &draft)
{
    const CatalogChange &told = draft.told;
    return std::tie(draft.change, told.changeClass, draft.place.area, draft.place.position,
                    draft.place.removed, told.subject, told.column, told.list, told.value, told.oldText,
                    told.newText, told.message);
}

int firstProfileOf(const ChangeDraft &draft)
{
    return draft.profiles.isEmpty() ? -1 : draft.profiles.first();
}

bool isEarlier(const ChangeDraft &a, const ChangeDraft &b)
{
    // Weak ones are listed apart.
    const bool isWeakA = a.change == Change::CodePerhapsRenamed;
    const bool isWeakB = b.change == Change::CodePerhapsRenamed;
    const int profileA = firstProfileOf(a);
    const int profileB = firstProfileOf(b);
    const auto orderOf = [](const ChangeDraft &draft, const bool &isWeak, const int &profile) {
        const CatalogChange &told = draft.told;
        return std::tie(told.changeClass, isWeak, draft.place.area, draft.place.position, draft.place.removed,
                        told.list, profile, told.column, draft.place.value, draft.change, told.subject,
                        told.value, told.oldText, told.newText, told.message);
    };
    return orderOf(a, isWeakA, profileA) < orderOf(b, isWeakB, profileB);
}

} // namespace

ChangeDraft &ChangeReport::add(Change change)
{
    return add(change, changeRow(change).changeClass);
}

ChangeDraft &ChangeReport::add(Change change, CatalogChangeClass changeClass)
{
    m_drafts.emplace_back();
    ChangeDraft &draft = m_drafts.back();
    draft.change = change;
    draft.told.id = QLatin1String(changeRow(change).id);
    draft.told.changeClass = changeClass;
    return draft;
}

bool ChangeReport::hasVisible() const
{
    return std::any_of(m_drafts.begin(), m_drafts.end(), [](const ChangeDraft &draft) {
        return draft.told.changeClass != CatalogChangeClass::Hidden;
    });
}

QVector<CatalogChange> ChangeReport::ordered(const ProfilePairs &profiles)
{
    std::stable_sort(m_drafts.begin(), m_drafts.end(), isEarlier);
    // By the data that sets share.
    QHash<const int *, QStringList> names;
    QVector<CatalogChange> changes;
    changes.reserve(int(m_drafts.size()));
    for (ChangeDraft &draft : m_drafts) {
        QStringList &known = names[draft.profiles.constData()];
        if (known.isEmpty()) {
            for (const int profile : qAsConst(draft.profiles))
                known.append(profiles.nameOf(profile));
        }
        draft.told.profiles = known;
        changes.append(std::move(draft.told));
    }
    m_drafts.clear();
    return changes;
}

void ChangeReport::join()
{
    std::stable_sort(m_drafts.begin(), m_drafts.end(), [](const ChangeDraft &a, const ChangeDraft &b) {
        const auto substanceA = substanceOf(a);
        const auto substanceB = substanceOf(b);
        return substanceA != substanceB ? substanceA < substanceB : a.profiles < b.profiles;
    });
    auto last = m_drafts.begin();
    for (auto draft = m_drafts.begin(); draft != m_drafts.end(); ++draft) {
        const bool isSame = draft != m_drafts.begin() && !draft->profiles.empty()
                            && draft->profiles != last->profiles && substanceOf(*last) == substanceOf(*draft);
        if (isSame) {
            ProfilePairs::Set joined;
            std::set_union(last->profiles.constBegin(), last->profiles.constEnd(),
                           draft->profiles.constBegin(), draft->profiles.constEnd(),
                           std::back_inserter(joined));
            last->profiles = std::move(joined);
        } else if (draft != m_drafts.begin() && ++last != draft) {
            *last = std::move(*draft);
        }
    }
    if (!m_drafts.empty())
        m_drafts.erase(last + 1, m_drafts.end());
}

} // namespace Orvida::Checking
