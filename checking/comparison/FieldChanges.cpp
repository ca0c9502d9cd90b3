#include "checking/comparison/FieldChanges_p.h"

#include "checking/comparison/EqualPairs_p.h"
#include "checking/comparison/FieldComparison_p.h"
#include "checking/comparison/ItemChanges_p.h"
#include "checking/findings/Wording_p.h"

#include <algorithm>
#include <vector>

namespace Orvida::Checking {

namespace {

using InputField = CatalogLinks::InputField;
using Px = ParameterExtensionToken;

int sortOrderOf(const Edition &edition, const InputField &field)
{
    return field.parameter < 0 ? 0
                               : edition.catalog().number(field.parameter, ParameterToken::PARAM_SortOrder);
}

// Compares the fields of one item with those of its partner.
class FieldsComparison
{
public:
    FieldsComparison(EditionPair &pair, UsedLists &lists, ColumnRelations &columns)
        : m_pair(pair), m_lists(lists), m_columns(columns)
    {
    }

    void compare(int oldItem, int newItem);

private:
    void pairFields(std::vector<int> &olds, std::vector<int> &news);
    void compareField(int oldField, int newField);
    void tellRemoved(int oldField);
    void tellAdded(int newField);
    void compareOrder();

    EditionPair &m_pair;
    UsedLists &m_lists;
    ColumnRelations &m_columns;
    int m_oldItem = 0;
    int m_newItem = 0;
    /// Sort orders of the fields of the item that are in both editions.
    std::vector<std::pair<int, int>> m_orders;
};

void FieldsComparison::compare(int oldItem, int newItem)
{
    m_oldItem = oldItem;
    m_newItem = newItem;
    m_orders.clear();
    std::vector<int> olds;
    std::vector<int> news;
    for (const int field : m_pair.oldEdition.links().inputFieldsOf(oldItem))
        olds.push_back(field);
    for (const int field : m_pair.newEdition.links().inputFieldsOf(newItem))
        news.push_back(field);
    pairFields(olds, news);
    for (const int field : olds)
        tellRemoved(field);
    for (const int field : news)
        tellAdded(field);
    compareOrder();
}

// By column and parameter, by column, and those that fill another column by parameter. Among equal ones by
// the key of the field.
void FieldsComparison::pairFields(std::vector<int> &olds, std::vector<int> &news)
{
    const auto sortByKey = [](const Edition &edition, std::vector<int> &fields) {
        std::sort(fields.begin(), fields.end(), [&](int a, int b) {
            return edition.text(edition.links().inputField(a).record, Px::PX_PK)
                   < edition.text(edition.links().inputField(b).record, Px::PX_PK);
        });
    };
    sortByKey(m_pair.oldEdition, olds);
    sortByKey(m_pair.newEdition, news);
    const auto pairBy = [&](bool isByColumn, bool isByParameter) {
        const auto featureOf = [=](const Edition &edition, int index) {
            const InputField &field = edition.links().inputField(index);
            const auto column = quint64(edition.common(field.column));
            const auto parameter = quint64(edition.value(field.record, Px::PX_Param_FK));
            if ((isByColumn && column == 0) || (!isByColumn && (column == 0 || parameter == 0)))
                return Feature();
            return Feature({isByColumn ? column : 0, isByParameter ? parameter : 0, 0});
        };
        pairEqual(
            olds, news, [&](int field) { return featureOf(m_pair.oldEdition, field); },
            [&](int field) { return featureOf(m_pair.newEdition, field); },
            [this](int oldField, int newField) { compareField(oldField, newField); });
    };
    pairBy(true, true);
    pairBy(true, false);
    pairBy(false, true);
}

void FieldsComparison::compareField(int oldField, int newField)
{
    const InputField &before = m_pair.oldEdition.links().inputField(oldField);
    const InputField &after = m_pair.newEdition.links().inputField(newField);
    const ColumnRelation &column = m_columns.relation(before.column, after.column);
    m_pair.records.push_back({before.record, after.record});
    FieldComparison(m_pair, m_lists, column, m_oldItem, m_newItem, before, after).compare();
    if (!column.both.empty())
        m_orders.emplace_back(sortOrderOf(m_pair.oldEdition, before), sortOrderOf(m_pair.newEdition, after));
}

void FieldsComparison::tellRemoved(int oldField)
{
    const InputField &field = m_pair.oldEdition.links().inputField(oldField);
    const ColumnRelation &column = m_columns.relation(field.column, 0);
    if (column.onlyOld.empty())
        return;
    const QString name = m_pair.oldEdition.text(field.column).toString();
    ChangeDraft &draft =
        addToField(m_pair, Change::FieldRemoved, CatalogChangeClass::Breaking, m_oldItem, m_newItem, name);
    draft.profiles = column.onlyOld;
    draft.told.oldText = name;
    draft.told.oldPlace = m_pair.oldEdition.placeOf(field.record);
    draft.told.message = QStringLiteral("field removed");
}

void FieldsComparison::tellAdded(int newField)
{
    const InputField &field = m_pair.newEdition.links().inputField(newField);
    const ColumnRelation &column = m_columns.relation(0, field.column);
    if (column.onlyNew.empty())
        return;
    const QString name = m_pair.newEdition.text(field.column).toString();
    const bool isMandatory = m_pair.newEdition.catalog().flag(field.record, Px::PX_Mandatory);
    ChangeDraft &draft = addToField(m_pair, Change::FieldAdded,
                                    isMandatory ? CatalogChangeClass::Review : CatalogChangeClass::Addition,
                                    m_oldItem, m_newItem, name);
    draft.profiles = column.onlyNew;
    draft.told.newText = name;
    draft.told.newPlace = m_pair.newEdition.placeOf(field.record);
    draft.told.message =
        isMandatory ? QStringLiteral("mandatory field added") : QStringLiteral("field added");
}

void FieldsComparison::compareOrder()
{
    if (isReordered(std::move(m_orders)))
        m_pair.addToItem(Change::FieldsReordered, m_oldItem, m_newItem).told.message =
            QStringLiteral("fields in another order");
}

} // namespace

void findFieldChanges(EditionPair &pair, ColumnRelations &columns, UsedLists &lists)
{
    FieldsComparison comparison(pair, lists, columns);
    comparison.compare(CatalogLinks::root, CatalogLinks::root);
    for (int item = 0; item < pair.newEdition.itemCount(); ++item) {
        const int partner = pair.items.oldOf(item);
        if (partner >= 0 && !isReused(pair, partner, item))
            comparison.compare(partner, item);
    }
    columns.addRenames(pair);
}

} // namespace Orvida::Checking
