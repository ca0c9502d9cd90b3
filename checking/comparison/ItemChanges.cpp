#include "checking/comparison/ItemChanges_p.h"

#include "checking/comparison/Similarity_p.h"
#include "checking/findings/Wording_p.h"
#include "checking/reading/Characters_p.h"
#include "checking/rules/CaptionRules_p.h"

#include <algorithm>
#include <limits>

namespace Orvida::Checking {

namespace {

using Class = CodeClassToken;
using Base = BaseCodeToken;
using Extension = CharacterExtensionToken;
using Evidence = ItemPairs::Evidence;

// A property of items, and its fields in the three kinds of records; 0 where one does not have it.
struct Property
{
    enum Kind { Number, Flag, Code, Codes, Prose, Observation };

    Change change;
    Kind kind;
    const char *name;
    int classToken;
    int baseToken;
    int extensionToken;
};

constexpr Property properties[] = {
    {Change::CodeFlagsChanged, Property::Number, "type flags", 0, int(Base::BC_TypeFlags),
     int(Extension::CE_TypeFlags)},
    {Change::ConstructionChanged, Property::Number, "construction type", 0, int(Base::BC_Construction),
     int(Extension::CE_Construction)},
    {Change::AutoPictureChanged, Property::Flag, "automatic picture", 0, int(Base::BC_AutoPicture),
     int(Extension::CE_AutoPicture)},
    {Change::CloseCodeChanged, Property::Code, "close code", 0, int(Base::BC_CloseCode),
     int(Extension::CE_CloseCode)},
    {Change::FollowersChanged, Property::Codes, "followers", 0, 0, int(Extension::CE_Follower)},
    {Change::CaptionChanged, Property::Prose, "caption", int(Class::CLASS_Item), int(Base::BC_Item),
     int(Extension::CE_Item)},
    {Change::RemarksChanged, Property::Prose, "remarks", int(Class::CLASS_Remarks), int(Base::BC_Remarks),
     int(Extension::CE_Remarks)},
    {Change::ObservationTextChanged, Property::Observation, "observation text", 0, int(Base::BC_ObsText),
     int(Extension::CE_ObsText)},
};

int tokenOf(const Property &property, Section kind)
{
    return kind == Section::CLASS      ? property.classToken
           : kind == Section::BASECODE ? property.baseToken
                                       : property.extensionToken;
}

// A field of an item, which some kinds of items do not have.
struct ItemField
{
    ItemField(const Edition &of, int item, const Property &property)
        : edition(of),
          record(of.recordOf(item)),
          token(tokenOf(property, of.item(item).kind)),
          symbol(token == 0 ? 0 : of.catalog().value(record, token))
    {
    }

    QStringView text() const { return edition.text(symbol); }
    QString string() const { return symbol == 0 ? QString() : text().toString(); }
    int number() const { return edition.catalog().toNumber(symbol); }
    bool flag() const { return edition.catalog().isTrue(symbol); }
    CatalogChangePlace place() const { return edition.placeOf(record, token == 0 ? -1 : token); }

    const Edition &edition;
    int record;
    int token;
    Symbol symbol;
};

bool haveSamePlaceholders(QStringView oldText, QStringView newText)
{
    std::vector<QStringView> olds = placeholdersIn(oldText);
    std::vector<QStringView> news = placeholdersIn(newText);
    for (std::vector<QStringView> *placeholders : {&olds, &news}) {
        std::sort(placeholders->begin(), placeholders->end());
        placeholders->erase(std::unique(placeholders->begin(), placeholders->end()), placeholders->end());
    }
    return olds == news;
}

// Compares one item with its partner.
class ItemComparison
{
public:
    ItemComparison(EditionPair &pair, int oldItem, int newItem)
        : m_pair(pair), m_old(pair.oldEdition), m_new(pair.newEdition), m_oldItem(oldItem), m_newItem(newItem)
    {
    }

    void compare();
    void compareName();
    void tellReused();

private:
    bool hadCode() const { return m_old.item(m_oldItem).code != 0; }
    bool hasCode() const { return m_new.item(m_newItem).code != 0; }
    ChangeDraft &add(Change change) { return m_pair.addToItem(change, m_oldItem, m_newItem); }
    void tellRenamed(Change change, const QString &why);
    void tellNameGone();
    void compareKey();
    void comparePlace();
    void compareChildren();
    void compareVirtual();
    void compareProperty(const Property &property);
    bool isChanged(const Property &property, const ItemField &before, const ItemField &after) const;
    bool areSameCodes(QStringView before, QStringView after) const;
    bool isRenamedCode(QStringView before, QStringView after) const;

    EditionPair &m_pair;
    const Edition &m_old;
    const Edition &m_new;
    const int m_oldItem;
    const int m_newItem;
};

void ItemComparison::compare()
{
    compareName();
    compareKey();
    comparePlace();
    compareChildren();
    compareVirtual();
    for (const Property &property : properties)
        compareProperty(property);
}

void ItemComparison::tellReused()
{
    ChangeDraft &draft = add(Change::CodeReused);
    draft.told.oldText = m_old.captionOf(m_oldItem).toString();
    draft.told.newText = m_new.captionOf(m_newItem).toString();
    draft.told.message =
        QStringLiteral("code used for something else: ") + fromTo(draft.told.oldText, draft.told.newText);
}

void ItemComparison::compareName()
{
    switch (m_pair.items.evidenceOf(m_oldItem)) {
    case Evidence::None:
    case Evidence::Name: break;
    case Evidence::Key:
        tellRenamed(Change::CodeRenamed,
                    QStringLiteral("same key ")
                        + shown(m_new.text(m_new.catalog().keyOf(m_new.recordOf(m_newItem)))));
        break;
    case Evidence::CaptionAndParent:
        tellRenamed(Change::CodeRenamed, QStringLiteral("same caption and parent"));
        break;
    case Evidence::CaptionAndColumns:
        tellRenamed(Change::CodeRenamed, QStringLiteral("same caption and columns"));
        break;
    case Evidence::SimilarCaption:
        tellRenamed(Change::CodePerhapsRenamed, QStringLiteral("similar caption"));
        break;
    case Evidence::OtherWords:
        tellRenamed(Change::CodePerhapsRenamed, QStringLiteral("same columns and observation text"));
        break;
    }
}

// A code that an item has only in one edition is lost or new. Without codes, only the keys differ.
void ItemComparison::tellRenamed(Change change, const QString &why)
{
    const bool isWeak = change == Change::CodePerhapsRenamed;
    if (hadCode() != hasCode()) {
        tellNameGone();
        return;
    }
    if (!hadCode() && !isWeak)
        return;
    const QString oldName = m_old.nameOf(m_oldItem);
    const QString newName = m_new.nameOf(m_newItem);
    ChangeDraft &draft = m_pair.addToItem(
        change, hadCode() ? CatalogChangeClass::Breaking : CatalogChangeClass::Review, m_oldItem, m_newItem);
    draft.told.subject = QStringLiteral("%1 → %2").arg(shown(oldName), shown(newName));
    draft.told.oldText = oldName;
    draft.told.newText = newName;
    draft.told.message = QStringLiteral("%1%2renamed (%3)")
                             .arg(hadCode() ? QStringLiteral("code ") : QStringLiteral("item without code "),
                                  isWeak ? QStringLiteral("perhaps ") : QString(), why);
    const bool isCertain = m_pair.items.evidenceOf(m_oldItem) == Evidence::Key;
    if (hadCode())
        m_pair.addRename(CatalogRename::Code,
                         isWeak      ? CatalogRename::Weak
                         : isCertain ? CatalogRename::Certain
                                     : CatalogRename::Likely,
                         oldName, newName);
}

void ItemComparison::tellNameGone()
{
    ChangeDraft &draft = add(hadCode() ? Change::CodeRemoved : Change::CodeAdded);
    const QString code = hadCode() ? m_old.nameOf(m_oldItem) : m_new.nameOf(m_newItem);
    draft.told.code = code;
    draft.told.subject = shown(code);
    (hadCode() ? draft.told.oldText : draft.told.newText) = code;
    draft.told.message = hadCode() ? QStringLiteral("code removed; the item has none any more")
                                   : QStringLiteral("code added to an item without one");
}

// Of an item with a new code, the key was the evidence or does not matter.
void ItemComparison::compareKey()
{
    const bool isSameName = m_pair.items.evidenceOf(m_oldItem) == Evidence::Name || !hadCode();
    if (m_old.item(m_oldItem).key == m_new.item(m_newItem).key || !isSameName || hadCode() != hasCode())
        return;
    ChangeDraft &draft = add(Change::CodeKeyChanged);
    draft.told.oldText = m_old.text(m_old.catalog().keyOf(m_old.recordOf(m_oldItem))).toString();
    draft.told.newText = m_new.text(m_new.catalog().keyOf(m_new.recordOf(m_newItem))).toString();
    draft.told.message = QStringLiteral("key ") + fromTo(draft.told.oldText, draft.told.newText);
}

void ItemComparison::comparePlace()
{
    const int oldParent = m_old.parentOf(m_oldItem);
    const int newParent = m_new.parentOf(m_newItem);
    const bool isOutside = newParent == CatalogLinks::missing || !m_new.isInTree(m_newItem);
    const bool isSame = oldParent != CatalogLinks::missing && m_pair.items.newOf(oldParent) == newParent;
    if (isOutside || isSame)
        return;
    ChangeDraft &draft = add(Change::CodeMoved);
    const auto parentName = [](const Edition &edition, int parent) {
        return parent == CatalogLinks::missing ? QStringLiteral("outside the tree") : edition.nameOf(parent);
    };
    draft.told.oldText = parentName(m_old, oldParent);
    draft.told.newText = parentName(m_new, newParent);
    draft.told.message = QStringLiteral("moved: ") + fromTo(draft.told.oldText, draft.told.newText);
}

void ItemComparison::compareChildren()
{
    const bool hadChildren = !m_old.links().childrenOf(m_oldItem).isEmpty();
    const bool hasChildren = !m_new.links().childrenOf(m_newItem).isEmpty();
    if (hadChildren == hasChildren || !hasCode())
        return;
    add(hasChildren ? Change::CodeBecameParent : Change::CodeLostChildren).told.message =
        hasChildren ? QStringLiteral("has finer codes now") : QStringLiteral("has no finer codes any more");
}

void ItemComparison::compareVirtual()
{
    const Property property = {Change::CodeVirtual,         Property::Flag,          "",
                               int(Class::CLASS_IsVirtual), int(Base::BC_IsVirtual), 0};
    const ItemField before(m_old, m_oldItem, property);
    const ItemField after(m_new, m_newItem, property);
    if (before.flag() == after.flag())
        return;
    ChangeDraft &draft = add(after.flag() ? Change::CodeVirtual : Change::CodeReal);
    draft.told.oldPlace = before.place();
    draft.told.newPlace = after.place();
    draft.told.message =
        after.flag() ? QStringLiteral("virtual now") : QStringLiteral("not virtual any more");
}

void ItemComparison::compareProperty(const Property &property)
{
    const ItemField before(m_old, m_oldItem, property);
    const ItemField after(m_new, m_newItem, property);
    if (!isChanged(property, before, after))
        return;
    Change change = property.change;
    CatalogChangeClass changeClass = changeRow(change).changeClass;
    if (property.kind == Property::Prose && meanSomethingElse(before.text(), after.text())) {
        change = Change::MeaningMayDiffer;
        changeClass = CatalogChangeClass::Review;
    }
    if (property.kind == Property::Observation && !haveSamePlaceholders(before.text(), after.text()))
        changeClass = CatalogChangeClass::Review;
    ChangeDraft &draft = m_pair.addToItem(change, changeClass, m_oldItem, m_newItem);
    draft.told.oldText = before.string();
    draft.told.newText = after.string();
    draft.told.oldPlace = before.place();
    draft.told.newPlace = after.place();
    draft.told.message =
        QLatin1String(property.name) + QLatin1Char(' ') + fromTo(before.text(), after.text());
}

bool ItemComparison::isChanged(const Property &property, const ItemField &before,
                               const ItemField &after) const
{
    if (m_old.common(before.symbol) == m_new.common(after.symbol))
        return false;
    switch (property.kind) {
    case Property::Number: return before.number() != after.number();
    case Property::Flag: return before.flag() != after.flag();
    case Property::Code: return !isRenamedCode(before.text(), after.text());
    case Property::Codes: return !areSameCodes(before.text(), after.text());
    default: return true;
    }
}

// Whether the codes in one text are those in the other, under their new names.
bool ItemComparison::areSameCodes(QStringView before, QStringView after) const
{
    const auto codesIn = [](QStringView text) {
        std::vector<QStringView> codes;
        forEachWord(text, [&codes](QStringView code) { codes.push_back(code); });
        return codes;
    };
    const std::vector<QStringView> olds = codesIn(before);
    const std::vector<QStringView> news = codesIn(after);
    return std::equal(olds.begin(), olds.end(), news.begin(), news.end(),
                      [this](QStringView a, QStringView b) { return a == b || isRenamedCode(a, b); });
}

// Whether one code is the other one under its new name.
bool ItemComparison::isRenamedCode(QStringView before, QStringView after) const
{
    const Symbol oldCode = m_old.catalog().texts.find(before);
    const Symbol newCode = m_new.catalog().texts.find(after);
    if (oldCode == 0 || newCode == 0)
        return false;
    const auto itemOf = [](const Edition &edition, Symbol code) {
        const int record = edition.links().recordWith(KeySpace::Code, code);
        return record < 0 ? CatalogLinks::missing : edition.links().itemOf(record);
    };
    const int oldItem = itemOf(m_old, oldCode);
    return oldItem >= 0 && m_pair.items.newOf(oldItem) >= 0
           && m_pair.items.newOf(oldItem) == itemOf(m_new, newCode);
}

void tellGone(EditionPair &pair, int oldItem)
{
    const Edition &edition = pair.oldEdition;
    // Nothing is recorded of what has no code.
    ChangeDraft &draft = pair.addToItem(Change::CodeRemoved,
                                        edition.item(oldItem).code == 0 ? CatalogChangeClass::Review
                                                                        : CatalogChangeClass::Breaking,
                                        oldItem, CatalogLinks::missing);
    const int left = pair.items.newCount(edition.item(oldItem).code);
    draft.told.oldText = edition.nameOf(oldItem);
    draft.told.message = edition.item(oldItem).code == 0 ? QStringLiteral("item without code removed")
                         : left > 0
                             ? QStringLiteral("removed; %1 with this code left").arg(counted(left, "item"))
                             : QStringLiteral("code removed");
    if (!edition.captionOf(oldItem).isEmpty())
        draft.told.message += QStringLiteral(" (%1)").arg(quoted(edition.captionOf(oldItem)));
}

void tellNew(EditionPair &pair, int newItem)
{
    const Edition &edition = pair.newEdition;
    const Edition::Text code = edition.item(newItem).code;
    ChangeDraft &draft = pair.addToItem(Change::CodeAdded, CatalogLinks::missing, newItem);
    draft.told.newText = edition.nameOf(newItem);
    draft.told.message = code == 0 ? QStringLiteral("item without code added") : QStringLiteral("code added");
    if (!edition.captionOf(newItem).isEmpty())
        draft.told.message += QStringLiteral(" (%1)").arg(quoted(edition.captionOf(newItem)));
}

// Told once, at the item that the old one became.
void tellAmbiguous(EditionPair &pair, int oldItem, int newItem)
{
    ChangeDraft &draft = pair.addToItem(Change::CodeAmbiguous, oldItem, newItem);
    draft.told.message = QStringLiteral("code of %1 now")
                             .arg(counted(pair.items.newCount(pair.newEdition.item(newItem).code), "item"));
}

bool isAmbiguous(const EditionPair &pair, Edition::Text code)
{
    return code != 0 && pair.items.oldCount(code) == 1 && pair.items.newCount(code) > 1;
}

// Items that were in the tree and are outside, by the item that they hang from.
void findUnreachable(EditionPair &pair)
{
    constexpr int mostNamed = 20;
    Groups lost;
    for (int item = 0; item < pair.newEdition.itemCount(); ++item) {
        const int partner = pair.items.oldOf(item);
        if (partner >= 0 && pair.oldEdition.isInTree(partner) && !pair.newEdition.isInTree(item))
            lost.add(pair.newEdition.links().item(item).brokenAt, item);
    }
    lost.sort();
    lost.forEach([&](const Groups::Members &members) {
        const int top = int(members.key());
        int first = members.first();
        for (const int item : members)
            first = item == top ? top : first;
        ChangeDraft &draft = pair.addToItem(Change::CodeUnreachable, pair.items.oldOf(first), first);
        for (const int item : members) {
            if (item != first && draft.told.codes.size() < mostNamed)
                draft.told.codes.append(pair.newEdition.nameOf(item));
        }
        draft.told.codeCount = members.size() - 1;
        draft.told.message = QStringLiteral("outside the tree now");
        if (draft.told.codeCount > 0)
            draft.told.message +=
                QStringLiteral(", with %1 below").arg(counted(draft.told.codeCount, "code"));
    });
}

void findReorderedChildren(EditionPair &pair, int oldParent, int newParent)
{
    std::vector<std::pair<int, int>> orders;
    for (const int child : pair.newEdition.links().childrenOf(newParent)) {
        const int partner = pair.items.oldOf(child);
        if (partner >= 0 && pair.oldEdition.parentOf(partner) == oldParent)
            orders.emplace_back(pair.oldEdition.item(partner).sortOrder,
                                pair.newEdition.item(child).sortOrder);
    }
    if (!isReordered(std::move(orders)))
        return;
    ChangeDraft &draft = pair.addToItem(Change::SiblingsReordered, oldParent, newParent);
    draft.told.message = newParent < 0 ? QStringLiteral("classes in another order")
                                       : QStringLiteral("children in another order");
}

} // namespace

bool isReused(const EditionPair &pair, int oldItem, int newItem)
{
    if (oldItem < 0 || pair.items.evidenceOf(oldItem) != Evidence::Name)
        return false;
    const Edition::Item &before = pair.oldEdition.item(oldItem);
    const Edition::Item &after = pair.newEdition.item(newItem);
    return before.code != 0 && before.key != after.key && before.caption != after.caption
           && pair.items.newOf(pair.oldEdition.parentOf(oldItem)) != pair.newEdition.parentOf(newItem)
           && meanSomethingElse(pair.oldEdition.captionOf(oldItem), pair.newEdition.captionOf(newItem));
}

bool isReordered(std::vector<std::pair<int, int>> orders)
{
    std::sort(orders.begin(), orders.end());
    int most = std::numeric_limits<int>::min();
    for (std::size_t index = 0; index < orders.size();) {
        const std::size_t first = index;
        if (orders[first].second < most)
            return true;
        while (index < orders.size() && orders[index].first == orders[first].first)
            ++index;
        most = orders[index - 1].second;
    }
    return false;
}

void findItemChanges(EditionPair &pair)
{
    for (int item = 0; item < pair.oldEdition.itemCount(); ++item) {
        if (pair.items.newOf(item) < 0)
            tellGone(pair, item);
    }
    findReorderedChildren(pair, CatalogLinks::root, CatalogLinks::root);
    for (int item = 0; item < pair.newEdition.itemCount(); ++item) {
        const int partner = pair.items.oldOf(item);
        const Edition::Text code = pair.newEdition.item(item).code;
        if (partner < 0) {
            if (!isAmbiguous(pair, code))
                tellNew(pair, item);
            continue;
        }
        pair.records.push_back({pair.oldEdition.recordOf(partner), pair.newEdition.recordOf(item)});
        if (isAmbiguous(pair, code))
            tellAmbiguous(pair, partner, item);
        ItemComparison comparison(pair, partner, item);
        if (isReused(pair, partner, item))
            comparison.tellReused();
        else
            comparison.compare();
        findReorderedChildren(pair, partner, item);
    }
    findUnreachable(pair);
}

} // namespace Orvida::Checking
