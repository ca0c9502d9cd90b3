#include "checking/comparison/ItemPairs_p.h"

#include "checking/comparison/Similarity_p.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <numeric>

namespace Orvida::Checking {

namespace {

constexpr double leastSimilarity = 0.75;
// With how many captions on each side of its place one is compared.
constexpr std::size_t neighbours = 20;

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_') || character == QLatin1Char('@');
}

QStringList wordsOf(QStringView text)
{
    const QString folded = ComparableText(text).folded();
    QStringList words;
    for (int start = 0; start < folded.size();) {
        int end = start;
        while (end < folded.size() && isWordCharacter(folded.at(end)))
            ++end;
        if (end > start)
            words.append(folded.mid(start, end - start));
        start = end + 1;
    }
    return words;
}

std::vector<int> listOf(const Groups::Members &members)
{
    std::vector<int> list;
    for (const int member : members)
        list.push_back(member);
    return list;
}

// The members of both groups of each key that both have.
template <typename Visit>
void forEachShared(const Groups &olds, const Groups &news, Visit visit)
{
    olds.forEach([&](const Groups::Members &oldMembers) {
        const Groups::Members newMembers = news.of(oldMembers.key());
        if (!newMembers.isEmpty())
            visit(oldMembers, newMembers);
    });
}

} // namespace

ItemPairs::ItemPairs(const Edition &oldEdition, const Edition &newEdition)
    : m_old(oldEdition),
      m_new(newEdition),
      m_newOf(std::size_t(oldEdition.itemCount()), CatalogLinks::missing),
      m_oldOf(std::size_t(newEdition.itemCount()), CatalogLinks::missing),
      m_evidence(m_newOf.size(), Evidence::None),
      m_isOldFree(m_newOf.size(), true),
      m_isNewFree(m_oldOf.size(), true)
{
    groupItems();
    pairNames(m_oldCodes, m_newCodes);
    pairNames(m_oldKeys, m_newKeys);
    pairKeys();
    Pairs parents = allPairs();
    followParents(parents);
    Pairs found;
    pairColumns(found);
    followParents(found);
    pairWeakly();
}

int ItemPairs::newOf(int oldItem) const
{
    return oldItem < 0 ? oldItem : m_newOf[std::size_t(oldItem)];
}

int ItemPairs::oldOf(int newItem) const
{
    return newItem < 0 ? newItem : m_oldOf[std::size_t(newItem)];
}

void ItemPairs::groupItems()
{
    const auto group = [](const Edition &edition, Groups &codes, Groups &keys) {
        for (int item = 0; item < edition.itemCount(); ++item)
            (edition.item(item).code != 0 ? codes : keys).add(edition.item(item).name(), item);
        codes.sort();
        keys.sort();
    };
    group(m_old, m_oldCodes, m_oldKeys);
    group(m_new, m_newCodes, m_newKeys);
}

void ItemPairs::pairNames(const Groups &olds, const Groups &news)
{
    forEachShared(olds, news, [this](const Groups::Members &oldMembers, const Groups::Members &newMembers) {
        for (const int item : oldMembers)
            m_isOldFree[std::size_t(item)] = false;
        for (const int item : newMembers)
            m_isNewFree[std::size_t(item)] = false;
        if (oldMembers.size() == 1 && newMembers.size() == 1) {
            add(oldMembers.first(), newMembers.first(), Evidence::Name);
            return;
        }
        std::vector<int> oldList = listOf(oldMembers);
        std::vector<int> newList = listOf(newMembers);
        pairGroup(oldList, newList);
    });
}

// Items of one code: by key, by what their parents are known by and their captions, by parents alone, and in
// the end in the order of their keys.
void ItemPairs::pairGroup(std::vector<int> &olds, std::vector<int> &news)
{
    std::sort(olds.begin(), olds.end(), [this](int a, int b) { return m_old.isBefore(a, b); });
    std::sort(news.begin(), news.end(), [this](int a, int b) { return m_new.isBefore(a, b); });
    const auto pairBy = [&](auto featureOf) {
        pairEqual(
            olds, news, [&](int item) { return featureOf(m_old, item); },
            [&](int item) { return featureOf(m_new, item); },
            [this](int oldItem, int newItem) { add(oldItem, newItem, Evidence::Name); });
    };
    pairBy([](const Edition &edition, int item) { return Feature({quint64(edition.item(item).key), 0, 0}); });
    pairBy([this](const Edition &edition, int item) {
        return Feature({quint64(parentName(edition, item)), quint64(edition.item(item).caption), 0});
    });
    pairBy([this](const Edition &edition, int item) {
        return Feature({quint64(parentName(edition, item)), 0, 0});
    });
    pairBy([](const Edition &, int) { return Feature({0, 0, 0}); });
}

// Those that were given another code, or a code at all.
void ItemPairs::pairKeys()
{
    std::vector<int> olds = freeOlds();
    std::vector<int> news = freeNews();
    pairEqual(
        olds, news, [this](int item) { return featureOf(m_old, item, Evidence::Key); },
        [this](int item) { return featureOf(m_new, item, Evidence::Key); },
        [this](int oldItem, int newItem) { add(oldItem, newItem, Evidence::Key); });
}

void ItemPairs::pairColumns(Pairs &found)
{
    std::vector<int> olds = freeOlds();
    std::vector<int> news = freeNews();
    std::sort(olds.begin(), olds.end(), [this](int a, int b) { return m_old.isBefore(a, b); });
    std::sort(news.begin(), news.end(), [this](int a, int b) { return m_new.isBefore(a, b); });
    pairEqual(
        olds, news, [this](int item) { return featureOf(m_old, item, Evidence::CaptionAndColumns); },
        [this](int item) { return featureOf(m_new, item, Evidence::CaptionAndColumns); },
        [&](int oldItem, int newItem) {
            add(oldItem, newItem, Evidence::CaptionAndColumns);
            found.push_back({oldItem, newItem});
        });
}

// Children of items that are paired only now are then looked for by better evidence first.
void ItemPairs::pairWeakly()
{
    for (Pairs parents = allPairs(); !parents.empty();) {
        Pairs found;
        for (const Evidence evidence : {Evidence::SimilarCaption, Evidence::OtherWords}) {
            for (const Pair &parent : parents)
                pairChildren(parent, evidence, found);
        }
        followParents(found);
        parents = std::move(found);
    }
}

// Pairs the children of `parents` that have the same captions, and adds these pairs as parents of others.
void ItemPairs::followParents(Pairs &parents)
{
    for (std::size_t index = 0; index < parents.size(); ++index) {
        const Pair parent = parents[index];
        pairChildren(parent, Evidence::CaptionAndParent, parents);
    }
}

void ItemPairs::pairChildren(const Pair &parent, Evidence evidence, Pairs &found)
{
    std::vector<int> olds = freeChildren(m_old, m_isOldFree, parent.oldItem);
    std::vector<int> news = olds.empty() ? olds : freeChildren(m_new, m_isNewFree, parent.newItem);
    if (olds.empty() || news.empty())
        return;
    if (evidence == Evidence::SimilarCaption) {
        pairSimilar(std::move(olds), std::move(news), found);
        return;
    }
    pairEqual(
        olds, news, [&](int item) { return featureOf(m_old, item, evidence); },
        [&](int item) { return featureOf(m_new, item, evidence); },
        [&](int oldItem, int newItem) {
            add(oldItem, newItem, evidence);
            found.push_back({oldItem, newItem});
        });
}

namespace {

struct Candidate
{
    double similarity;
    std::size_t oldPlace;
    std::size_t newPlace;
};

struct Captions
{
    std::vector<ComparableText> texts;
    /// Places in `texts` by the alphabet.
    std::vector<std::size_t> order;
};

Captions captionsOf(const Edition &edition, const std::vector<int> &items)
{
    Captions captions;
    for (const int item : items)
        captions.texts.emplace_back(edition.captionOf(item));
    captions.order.resize(items.size());
    std::iota(captions.order.begin(), captions.order.end(), 0);
    std::stable_sort(captions.order.begin(), captions.order.end(), [&](std::size_t a, std::size_t b) {
        return captions.texts[a].folded() < captions.texts[b].folded();
    });
    return captions;
}

// The places around `middle`, as far as there are any.
std::pair<std::size_t, std::size_t> around(std::size_t middle, std::size_t count)
{
    return {middle - std::min(middle, neighbours), std::min(middle + neighbours, count)};
}

// Where in the alphabet captions are with which one is compared: those that come next to it, and those that
// come as far down in the new edition as it does in the old one, which finds captions that all begin in
// another way now.
std::vector<std::size_t> neighboursOf(const ComparableText &text, std::size_t rank, const Captions &news)
{
    const auto place = std::lower_bound(news.order.begin(), news.order.end(), text.folded(),
                                        [&](std::size_t candidate, const QString &wanted) {
                                            return news.texts[candidate].folded() < wanted;
                                        });
    std::vector<std::size_t> found;
    for (const std::size_t middle : {std::size_t(place - news.order.begin()), rank}) {
        const auto [first, last] = around(std::min(middle, news.order.size()), news.order.size());
        for (std::size_t index = first; index < last; ++index)
            found.push_back(news.order[index]);
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

// All that are similar enough, the best first.
std::vector<Candidate> candidatesOf(const Captions &olds, const Captions &news)
{
    std::vector<Candidate> candidates;
    for (std::size_t rank = 0; rank < olds.order.size(); ++rank) {
        const ComparableText &text = olds.texts[olds.order[rank]];
        if (text.folded().isEmpty())
            continue;
        for (const std::size_t candidate : neighboursOf(text, rank, news)) {
            const double similarity = text.similarityTo(news.texts[candidate]);
            if (similarity >= leastSimilarity)
                candidates.push_back({similarity, olds.order[rank], candidate});
        }
    }
    std::sort(candidates.begin(), candidates.end(), [](const Candidate &a, const Candidate &b) {
        if (a.similarity != b.similarity)
            return a.similarity > b.similarity;
        return a.oldPlace != b.oldPlace ? a.oldPlace < b.oldPlace : a.newPlace < b.newPlace;
    });
    return candidates;
}

} // namespace

void ItemPairs::pairSimilar(std::vector<int> olds, std::vector<int> news, Pairs &found)
{
    const std::vector<Candidate> candidates = candidatesOf(captionsOf(m_old, olds), captionsOf(m_new, news));
    for (const Candidate &candidate : candidates) {
        const int oldItem = olds[candidate.oldPlace];
        const int newItem = news[candidate.newPlace];
        const bool isOneKind = m_old.item(oldItem).kind == m_new.item(newItem).kind;
        if (!isOneKind || !m_isOldFree[std::size_t(oldItem)] || !m_isNewFree[std::size_t(newItem)])
            continue;
        add(oldItem, newItem, Evidence::SimilarCaption);
        found.push_back({oldItem, newItem});
    }
}

void ItemPairs::add(int oldItem, int newItem, Evidence evidence)
{
    m_newOf[std::size_t(oldItem)] = newItem;
    m_oldOf[std::size_t(newItem)] = oldItem;
    m_evidence[std::size_t(oldItem)] = evidence;
    m_isOldFree[std::size_t(oldItem)] = false;
    m_isNewFree[std::size_t(newItem)] = false;
}

// Parents before their children, as far as they are in the tree.
ItemPairs::Pairs ItemPairs::allPairs() const
{
    Pairs pairs = {{CatalogLinks::root, CatalogLinks::root}};
    for (const int item : m_old.links().treeOrder()) {
        if (newOf(item) >= 0)
            pairs.push_back({item, newOf(item)});
    }
    for (int item = 0; item < m_old.itemCount(); ++item) {
        if (!m_old.isInTree(item) && newOf(item) >= 0)
            pairs.push_back({item, newOf(item)});
    }
    return pairs;
}

namespace {

std::vector<int> marked(const std::vector<bool> &marks)
{
    std::vector<int> result;
    for (std::size_t index = 0; index < marks.size(); ++index) {
        if (marks[index])
            result.push_back(int(index));
    }
    return result;
}

} // namespace

std::vector<int> ItemPairs::freeOlds() const
{
    return marked(m_isOldFree);
}

std::vector<int> ItemPairs::freeNews() const
{
    return marked(m_isNewFree);
}

std::vector<int> ItemPairs::freeChildren(const Edition &edition, const std::vector<bool> &isFree,
                                         int parent) const
{
    std::vector<int> children;
    for (const int child : edition.links().childrenOf(parent)) {
        if (isFree[std::size_t(child)])
            children.push_back(child);
    }
    std::sort(children.begin(), children.end(), [&](int a, int b) { return edition.isBefore(a, b); });
    return children;
}

Edition::Text ItemPairs::parentName(const Edition &edition, int item) const
{
    const int parent = edition.parentOf(item);
    return parent < 0 ? parent : edition.item(parent).name();
}

// Only items of one kind of record are taken for the same.
Feature ItemPairs::featureOf(const Edition &edition, int item, Evidence evidence)
{
    const Edition::Item &described = edition.item(item);
    const auto kind = quint64(described.kind);
    switch (evidence) {
    case Evidence::Key: return Feature({kind, quint64(described.key), 0});
    case Evidence::CaptionAndParent:
        return described.caption == 0 ? Feature() : Feature({kind, quint64(described.caption), 0});
    case Evidence::CaptionAndColumns:
        return described.caption == 0 ? Feature()
                                      : Feature({kind, quint64(described.caption), described.columns});
    default: break;
    }
    const int words = numberOfOtherWords(edition, item);
    return words == 0 ? Feature() : Feature({kind, described.columns, quint64(words)});
}

// A number for the observation text without the words of the code and its caption; 0 when nothing is left.
int ItemPairs::numberOfOtherWords(const Edition &edition, int item)
{
    const QStringList own = wordsOf(edition.captionOf(item)) + wordsOf(edition.nameOf(item));
    const QSet<QString> ownWords(own.begin(), own.end());
    QStringList others;
    for (const QString &word : wordsOf(edition.observationTextOf(item))) {
        if (!ownWords.contains(word))
            others.append(word);
    }
    if (others.isEmpty())
        return 0;
    const QString text = others.join(QLatin1Char(' '));
    return *m_wordings.insert(text, m_wordings.value(text, m_wordings.size() + 1));
}

} // namespace Orvida::Checking
