#include "checking/comparison/EditionPair_p.h"

#include "checking/findings/Wording_p.h"

#include <algorithm>

namespace Orvida::Checking {

namespace {

QString wordOf(QStringView text)
{
    if (text.isEmpty())
        return QStringLiteral("none");
    const bool isPlain = std::all_of(text.begin(), text.end(), [](QChar character) {
        return character.isLetterOrNumber() || QStringLiteral("-+_./@#%:°²³").contains(character);
    });
    return isPlain ? shown(text) : quoted(text);
}

} // namespace

QString fromTo(QStringView oldText, QStringView newText)
{
    return wordOf(oldText) + QStringLiteral(" → ") + wordOf(newText);
}

EditionPair::EditionPair(const Edition &before, const Edition &after, const QString &onlyProfile)
    : oldEdition(before),
      newEdition(after),
      items(before, after),
      profiles(before, after),
      m_onlyProfile(onlyProfile)
{
    for (int profile = 0; profile < int(profiles.profiles().size()); ++profile)
        m_isCompared.push_back(profiles.profile(profile).isCompared() && isAsked(profile));
    placeRemovedItems();
}

bool EditionPair::isAsked(int profile) const
{
    return m_onlyProfile.isNull() || profiles.nameOf(profile) == m_onlyProfile
           || profiles.oldNameOf(profile) == m_onlyProfile;
}

ReportPlace EditionPair::placeOfNew(int item) const
{
    ReportPlace place;
    place.area = ReportPlace::Tree;
    place.position = item < 0 ? -1 : newEdition.item(item).position;
    return place;
}

ReportPlace EditionPair::placeOfRemoved(int oldItem) const
{
    ReportPlace place;
    place.area = ReportPlace::Tree;
    place.position = m_anchors[std::size_t(oldItem)];
    place.removed = oldEdition.item(oldItem).position + 1;
    return place;
}

ChangeDraft &EditionPair::addToItem(Change change, CatalogChangeClass changeClass, int oldItem, int newItem)
{
    ChangeDraft &draft = report.add(change, changeClass);
    const bool isGone = newItem == CatalogLinks::missing;
    draft.place = isGone ? placeOfRemoved(oldItem) : placeOfNew(newItem);
    const QString name = isGone ? oldEdition.nameOf(oldItem) : newEdition.nameOf(newItem);
    if (newItem != CatalogLinks::root)
        draft.told.code = name;
    draft.told.subject = shown(name);
    if (oldItem != CatalogLinks::missing)
        draft.told.oldPlace = oldEdition.placeOf(oldEdition.recordOf(oldItem));
    if (!isGone)
        draft.told.newPlace = newEdition.placeOf(newEdition.recordOf(newItem));
    return draft;
}

ChangeDraft &EditionPair::addToItem(Change change, int oldItem, int newItem)
{
    return addToItem(change, changeRow(change).changeClass, oldItem, newItem);
}

void EditionPair::addRename(CatalogRename::Kind kind, CatalogRename::Certainty certainty,
                            const QString &oldName, const QString &newName, int profile, const QString &list)
{
    CatalogRename rename;
    rename.kind = kind;
    rename.profile = profile < 0 ? QString() : profiles.oldNameOf(profile);
    rename.list = list;
    rename.oldName = oldName;
    rename.newName = newName;
    rename.certainty = certainty;
    renames.append(rename);
}

// An item that is gone comes after the last one before it that is still below the same parent, with all that
// is below that; otherwise after its parent.
void EditionPair::placeRemovedItems()
{
    std::vector<int> order(std::size_t(oldEdition.itemCount()));
    for (int item = 0; item < oldEdition.itemCount(); ++item)
        order[std::size_t(oldEdition.item(item).position)] = item;
    m_anchors.assign(order.size(), -1);
    // By parent; the last one is that of the root.
    std::vector<int> lastOfParent(order.size() + 1, -1);
    const auto slot = [&](int item) { return item < 0 ? order.size() : std::size_t(item); };
    for (const int item : order) {
        const int parent = oldEdition.parentOf(item);
        const int partner = items.newOf(item);
        int &last = lastOfParent[slot(parent)];
        if (partner < 0) {
            m_anchors[std::size_t(item)] = last;
            lastOfParent[slot(item)] = last;
            continue;
        }
        const Edition::Item &known = newEdition.item(partner);
        lastOfParent[slot(item)] = known.position;
        if (newEdition.parentOf(partner) == items.newOf(parent))
            last = known.last;
    }
}

} // namespace Orvida::Checking
