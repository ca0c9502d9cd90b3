// What a load makes of the records of a catalog file. For the checker's own use.
#pragma once

#include "checking/reading/Groups_p.h"
#include "checking/reading/LocatedCatalog_p.h"

#include <array>
#include <vector>

namespace Orvida::Checking {

using KeySpace = Catalogs::CatalogFormat::KeySpace;

/// Which records of a file count, and how they are linked. Follows the rules of loading; nothing is built.
class CatalogLinks
{
public:
    /// In place of a record or item that a key names.
    static constexpr int root = -1;
    static constexpr int missing = -2;

    /// A code class, base code or character extension that counts.
    struct Item
    {
        int record = -1;
        /// The field that names the parent, of those that the record has; null without one.
        const LocatedField *parentField = nullptr;
        /// The parent among the items, `root` or `missing`.
        int parent = root;
        /// Why it is outside the tree: the item without parent, or the first one in the file of the parent
        /// loop, that it is below; -1 inside the tree.
        int brokenAt = -1;
        /// Inside the tree: its number when the tree is walked from the top down, and the number after the
        /// last one below it.
        int enter = 0;
        int leave = 0;
    };

    /// What a parameter extension makes: one input field for each profile of its column.
    struct InputField
    {
        int record = -1;
        /// The field that names the item; null when none does.
        const LocatedField *itemField = nullptr;
        /// Among the items, `root` or `missing`.
        int item = root;
        /// The record of the parameter, or `missing`, also when none is named.
        int parameter = missing;
        Symbol column = 0;
        Symbol list = 0;
    };

    explicit CatalogLinks(const LocatedCatalog &catalog);

    /// Whether a load makes anything of the record in the end.
    bool counts(int record) const { return m_counts[std::size_t(record)]; }
    /// The records that are read with this key, also those that do not count.
    Groups::Members recordsWith(KeySpace space, Symbol key) const { return m_keys[int(space)].of(key); }
    const Groups &keys(KeySpace space) const { return m_keys[int(space)]; }
    /// The records that would have this key if they were not lost.
    Groups::Members lostRecordsWith(KeySpace space, Symbol key) const
    {
        return m_lostKeys[int(space)].of(key);
    }
    /// The record with this key; `missing` when there is none.
    int recordWith(KeySpace space, Symbol key) const;

    const std::vector<Item> &items() const { return m_items; }
    const Item &item(int index) const { return m_items[std::size_t(index)]; }
    /// The item of a record that counts.
    int itemOf(int record) const { return m_itemOfRecord[std::size_t(record)]; }
    /// The item with this key, or `missing`; an empty key is that of the root.
    int itemWith(Symbol key) const;
    /// By item, or under `root`.
    Groups::Members childrenOf(int item) const { return m_children.of(item); }
    const Groups &children() const { return m_children; }
    /// The items inside the tree, from the top down.
    const std::vector<int> &treeOrder() const { return m_treeOrder; }
    bool isAbove(int upper, int lower) const;
    /// Whether an item, or the root, is inside the tree.
    bool isInTree(int item) const
    {
        return item == root || (item >= 0 && m_items[std::size_t(item)].brokenAt < 0);
    }
    /// How many items are below an item outside the tree, or below the loop that it is in.
    int brokenBelow(int item) const { return m_brokenBelow.of(item).size(); }
    /// By their first items in the file, in the order of the loop.
    const std::vector<std::vector<int>> &loops() const { return m_loops; }

    const std::vector<InputField> &inputFields() const { return m_inputFields; }
    const InputField &inputField(int index) const { return m_inputFields[std::size_t(index)]; }
    /// Input fields by their item.
    Groups::Members inputFieldsOf(int item) const { return m_inputFieldsOfItem.of(item); }
    const Groups &inputFieldsByItem() const { return m_inputFieldsOfItem; }
    Groups::Members inputFieldsOfColumn(Symbol id) const { return m_inputFieldsOfColumn.of(id); }

    /// Column records that count, by id; one per profile.
    Groups::Members columns(Symbol id) const { return m_columns.of(id); }
    const Groups &columns() const { return m_columns; }
    /// List classes that count, by id; one per profile.
    Groups::Members lists(Symbol classId) const { return m_lists.of(classId); }
    const Groups &lists() const { return m_lists; }
    /// The list class of this id in this profile, or `missing`.
    int list(Symbol classId, Symbol profile) const;
    /// List items by the key of their class.
    Groups::Members entries(Symbol classKey) const { return m_entries.of(classKey); }
    const Groups &entries() const { return m_entries; }

private:
    void findKeys();
    void addKeys(int index);
    void dropReplaced(KeySpace space);
    void dropColumns();
    void dropListClasses();
    void findItems();
    void findParent(Item &item) const;
    void findBroken();
    void breakPath(const std::vector<int> &path, int last);
    void numberTree();
    void findInputFields();
    void findListItems();

    const LocatedCatalog &m_catalog;
    std::vector<bool> m_counts;
    std::array<Groups, int(KeySpace::ParameterExtension) + 1> m_keys;
    std::array<Groups, int(KeySpace::ParameterExtension) + 1> m_lostKeys;
    std::vector<Item> m_items;
    std::vector<int> m_itemOfRecord;
    Groups m_children;
    std::vector<int> m_treeOrder;
    std::vector<std::vector<int>> m_loops;
    Groups m_brokenBelow;
    std::vector<InputField> m_inputFields;
    Groups m_inputFieldsOfItem;
    Groups m_inputFieldsOfColumn;
    Groups m_columns;
    Groups m_lists;
    Groups m_listsOfProfiles;
    Groups m_entries;
};

/// The fields that all kinds of items have, under names of their own.
struct ItemTokens
{
    int key;
    int caption;
    int code;    ///< 0 for code classes, which have none
    int obsText; ///< the same
    int sortOrder;
};
ItemTokens itemTokens(Section kind);
bool isItem(Section kind);

} // namespace Orvida::Checking
