#include "checking/reading/CatalogLinks_p.h"

#include "catalogs/reading/FieldConversion_p.h"

#include <algorithm>

namespace Orvida::Checking {

bool isItem(Section kind)
{
    return kind == Section::CLASS || kind == Section::BASECODE || kind == Section::CHAREXT;
}

ItemTokens itemTokens(Section kind)
{
    switch (kind) {
    case Section::BASECODE:
        return {int(BaseCodeToken::BC_PK), int(BaseCodeToken::BC_Item), int(BaseCodeToken::BC_Code),
                int(BaseCodeToken::BC_ObsText), int(BaseCodeToken::BC_SortOrder)};
    case Section::CHAREXT:
        return {int(CharacterExtensionToken::CE_PK), int(CharacterExtensionToken::CE_Item),
                int(CharacterExtensionToken::CE_Code), int(CharacterExtensionToken::CE_ObsText),
                int(CharacterExtensionToken::CE_SortOrder)};
    default:
        return {int(CodeClassToken::CLASS_PK), int(CodeClassToken::CLASS_Item), 0, 0,
                int(CodeClassToken::CLASS_SortOrder)};
    }
}

CatalogLinks::CatalogLinks(const LocatedCatalog &catalog)
    : m_catalog(catalog), m_counts(std::size_t(catalog.recordCount()))
{
    findKeys();
    for (const KeySpace space : {KeySpace::Item, KeySpace::Parameter, KeySpace::ParameterExtension})
        dropReplaced(space);
    dropColumns();
    dropListClasses();
    findItems();
    findBroken();
    numberTree();
    findInputFields();
    findListItems();
}

int CatalogLinks::recordWith(KeySpace space, Symbol key) const
{
    const Groups::Members records = recordsWith(space, key);
    return records.isEmpty() ? missing : records.last();
}

int CatalogLinks::itemWith(Symbol key) const
{
    if (key == 0)
        return root;
    const int record = recordWith(KeySpace::Item, key);
    return record < 0 ? missing : itemOf(record);
}

bool CatalogLinks::isAbove(int upper, int lower) const
{
    return item(upper).enter <= item(lower).enter && item(lower).enter < item(upper).leave;
}

int CatalogLinks::list(Symbol classId, Symbol profile) const
{
    const Groups::Members records = m_listsOfProfiles.of(pairOf(classId, profile));
    return records.isEmpty() ? missing : records.last();
}

void CatalogLinks::findKeys()
{
    for (int record = 0; record < m_catalog.recordCount(); ++record) {
        m_counts[std::size_t(record)] = !m_catalog.record(record).isLost();
        if (m_catalog.record(record).kind != Section::Unknown)
            addKeys(record);
    }
    for (Groups &keys : m_keys)
        keys.sort();
    for (Groups &keys : m_lostKeys)
        keys.sort();
}

// A column of unknown type is dropped while reading.
void CatalogLinks::addKeys(int index)
{
    const LocatedRecord &record = m_catalog.record(index);
    if (record.kind == Section::COL && !record.isLost()) {
        const QString type = m_catalog.texts.string(m_catalog.value(index, ColumnToken::COL_DataType));
        m_counts[std::size_t(index)] =
            Catalogs::toColumnType(QStringRef(&type)) != Shared::InputField::Undefined;
    }
    for (const LocatedField *field = m_catalog.begin(index); field != m_catalog.end(index); ++field) {
        const KeySpace space = m_catalog.format(index, *field).keySpace;
        if (space == KeySpace::None || field->value == 0)
            continue;
        const bool isLost = !counts(index) || field->isOverruled;
        (isLost ? m_lostKeys : m_keys)[std::size_t(space)].add(field->value, index);
    }
}

// The last record with a key replaces the others.
void CatalogLinks::dropReplaced(KeySpace space)
{
    m_keys[std::size_t(space)].forEach([this](const Groups::Members &records) {
        for (const int record : records)
            m_counts[std::size_t(record)] = record == records.last();
    });
}

// The first one for a profile counts.
void CatalogLinks::dropColumns()
{
    Groups columnsOfProfiles;
    m_keys[std::size_t(KeySpace::Column)].forEach([&](const Groups::Members &records) {
        for (const int record : records)
            columnsOfProfiles.add(
                pairOf(int(records.key()), m_catalog.value(record, ColumnToken::COL_Profile_FK)), record);
    });
    columnsOfProfiles.sort();
    columnsOfProfiles.forEach([this](const Groups::Members &records) {
        for (const int record : records)
            m_counts[std::size_t(record)] = record == records.first();
        m_columns.add(records.key() >> 32, records.first());
    });
    m_columns.sort();
}

// The last one for a profile counts.
void CatalogLinks::dropListClasses()
{
    m_keys[std::size_t(KeySpace::ListClassId)].forEach([this](const Groups::Members &records) {
        for (const int record : records)
            m_listsOfProfiles.add(
                pairOf(int(records.key()), m_catalog.value(record, ListClassToken::LC_Profile_FK)), record);
    });
    m_listsOfProfiles.sort();
    m_listsOfProfiles.forEach([this](const Groups::Members &records) {
        for (const int record : records)
            m_counts[std::size_t(record)] = record == records.last();
        m_lists.add(records.key() >> 32, records.last());
    });
    m_lists.sort();
}

void CatalogLinks::findItems()
{
    m_itemOfRecord.assign(std::size_t(m_catalog.recordCount()), missing);
    for (int record = 0; record < m_catalog.recordCount(); ++record) {
        if (!counts(record) || !isItem(m_catalog.record(record).kind))
            continue;
        m_itemOfRecord[std::size_t(record)] = int(m_items.size());
        m_items.emplace_back();
        m_items.back().record = record;
    }
    for (std::size_t index = 0; index < m_items.size(); ++index) {
        findParent(m_items[index]);
        m_children.add(m_items[index].parent, int(index));
    }
    m_children.sort();
}

void CatalogLinks::findParent(Item &item) const
{
    const LocatedField *const end = m_catalog.end(item.record);
    const LocatedField *const field =
        std::find_if(m_catalog.begin(item.record), end, [](const LocatedField &one) { return one.isParent; });
    item.parentField = field == end ? nullptr : field;
    item.parent = itemWith(field == end ? 0 : field->value);
}

// Each walk goes up from an item until it meets the root, a missing parent, or an item that was visited
// before.
void CatalogLinks::findBroken()
{
    std::vector<bool> isVisited(m_items.size());
    std::vector<int> path;
    for (int start = 0; start < int(m_items.size()); ++start) {
        path.clear();
        int index = start;
        for (; index >= 0 && !isVisited[std::size_t(index)]; index = item(index).parent) {
            isVisited[std::size_t(index)] = true;
            path.push_back(index);
        }
        if (!path.empty())
            breakPath(path, index);
    }
    for (int index = 0; index < int(m_items.size()); ++index) {
        const int brokenAt = item(index).brokenAt;
        if (brokenAt >= 0 && brokenAt != index)
            m_brokenBelow.add(brokenAt, index);
    }
    m_brokenBelow.sort();
}

// `path` leads upwards to `last`, an item of the path itself where it closes a loop.
void CatalogLinks::breakPath(const std::vector<int> &path, int last)
{
    int brokenAt = last == missing ? path.back() : last >= 0 ? item(last).brokenAt : -1;
    const auto loopStart = std::find(path.begin(), path.end(), last);
    if (loopStart != path.end()) {
        std::vector<int> loop(loopStart, path.end());
        std::rotate(loop.begin(), std::min_element(loop.begin(), loop.end()), loop.end());
        brokenAt = loop.front();
        m_loops.push_back(std::move(loop));
    }
    for (const int index : path)
        m_items[std::size_t(index)].brokenAt = brokenAt;
}

void CatalogLinks::numberTree()
{
    std::vector<int> open = {root};
    while (!open.empty()) {
        const int index = open.back();
        if (index >= 0 && item(index).enter > 0) {
            m_items[std::size_t(index)].leave = int(m_treeOrder.size()) + 1;
            open.pop_back();
            continue;
        }
        if (index >= 0) {
            m_treeOrder.push_back(index);
            m_items[std::size_t(index)].enter = int(m_treeOrder.size());
        } else {
            open.pop_back();
        }
        for (const int child : childrenOf(index))
            open.push_back(child);
    }
}

void CatalogLinks::findInputFields()
{
    for (int record = 0; record < m_catalog.recordCount(); ++record) {
        if (!counts(record) || m_catalog.record(record).kind != Section::PARAMX)
            continue;
        InputField field;
        field.record = record;
        const auto itemToken = m_catalog.value(record, ParameterExtensionToken::PX_BaseCode_FK) != 0
                                   ? ParameterExtensionToken::PX_BaseCode_FK
                                   : ParameterExtensionToken::PX_CharExt_FK;
        field.itemField = m_catalog.field(record, itemToken);
        field.item = itemWith(m_catalog.value(record, itemToken));
        field.parameter =
            recordWith(KeySpace::Parameter, m_catalog.value(record, ParameterExtensionToken::PX_Param_FK));
        field.column = m_catalog.value(record, ParameterExtensionToken::PX_Column_ID);
        field.list = m_catalog.value(record, ParameterExtensionToken::PX_ListClass_ID);
        const int index = int(m_inputFields.size());
        m_inputFieldsOfItem.add(field.item, index);
        m_inputFieldsOfColumn.add(field.column, index);
        m_inputFields.push_back(field);
    }
    m_inputFieldsOfItem.sort();
    m_inputFieldsOfColumn.sort();
}

void CatalogLinks::findListItems()
{
    for (int record = 0; record < m_catalog.recordCount(); ++record) {
        if (counts(record) && m_catalog.record(record).kind == Section::LIST)
            m_entries.add(m_catalog.value(record, ListItemToken::LIST_Class_FK), record);
    }
    m_entries.sort();
}

} // namespace Orvida::Checking
