// Which items of two editions are the same. For the comparison's own use.
#pragma once

#include "checking/comparison/Edition_p.h"
#include "checking/comparison/EqualPairs_p.h"

#include <QHash>
#include <QString>

#include <array>
#include <vector>

namespace Orvida::Checking {

/// Pairs the items of two editions one to one: by their codes, those without code by their keys; then those
/// that were renamed, as far as they can be recognised. An item is looked for a bounded number of times: by
/// hash-like numbers, and among the children of one parent.
class ItemPairs
{
public:
    /// By what two items were recognised as the same.
    enum class Evidence { None, Name, Key, CaptionAndParent, CaptionAndColumns, SimilarCaption, OtherWords };

    ItemPairs(const Edition &oldEdition, const Edition &newEdition);

    /// The item of the other edition that is the same; `CatalogLinks::missing` when there is none, `root` for
    /// the root.
    int newOf(int oldItem) const;
    int oldOf(int newItem) const;
    /// Of an item of the old edition with a partner.
    Evidence evidenceOf(int oldItem) const { return m_evidence[std::size_t(oldItem)]; }

    /// How many items of each edition are known by the same as this one.
    int oldCount(Edition::Text code) const { return m_oldCodes.of(code).size(); }
    int newCount(Edition::Text code) const { return m_newCodes.of(code).size(); }

private:
    struct Pair
    {
        int oldItem;
        int newItem;
    };
    using Pairs = std::vector<Pair>;

    void groupItems();
    void pairNames(const Groups &olds, const Groups &news);
    void pairGroup(std::vector<int> &olds, std::vector<int> &news);
    void pairKeys();
    void pairColumns(Pairs &found);
    void pairWeakly();
    void followParents(Pairs &parents);
    void pairChildren(const Pair &parent, Evidence evidence, Pairs &found);
    void pairSimilar(std::vector<int> olds, std::vector<int> news, Pairs &found);
    void add(int oldItem, int newItem, Evidence evidence);
    Pairs allPairs() const;
    std::vector<int> freeOlds() const;
    std::vector<int> freeNews() const;
    std::vector<int> freeChildren(const Edition &edition, const std::vector<bool> &isFree, int parent) const;
    Edition::Text parentName(const Edition &edition, int item) const;
    Feature featureOf(const Edition &edition, int item, Evidence evidence);
    int numberOfOtherWords(const Edition &edition, int item);

    const Edition &m_old;
    const Edition &m_new;
    std::vector<int> m_newOf;
    std::vector<int> m_oldOf;
    std::vector<Evidence> m_evidence;
    /// Whether an item has no partner, and the other edition nothing of its name.
    std::vector<bool> m_isOldFree;
    std::vector<bool> m_isNewFree;
    /// By code, and by key the items without one.
    Groups m_oldCodes;
    Groups m_newCodes;
    Groups m_oldKeys;
    Groups m_newKeys;
    QHash<QString, int> m_wordings;
};

} // namespace Orvida::Checking
