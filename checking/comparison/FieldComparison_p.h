// Compares one input field. For the comparison's own use.
#pragma once

#include "checking/comparison/ColumnRelations_p.h"
#include "checking/comparison/EditionPair_p.h"
#include "checking/comparison/UsedLists_p.h"

namespace Orvida::Checking {

/// Adds a change to a field in `column`, still without place in the files.
ChangeDraft &addToField(EditionPair &pair, Change change, CatalogChangeClass changeClass, int oldItem,
                        int newItem, const QString &column);

/// Compares one field with its partner.
class FieldComparison
{
public:
    FieldComparison(EditionPair &pair, UsedLists &lists, const ColumnRelation &column, int oldItem,
                    int newItem, const CatalogLinks::InputField &before,
                    const CatalogLinks::InputField &after)
        : m_pair(pair),
          m_lists(lists),
          m_column(column),
          m_oldItem(oldItem),
          m_newItem(newItem),
          m_before(before),
          m_after(after)
    {
    }

    void compare();

private:
    template <typename Token>
    QString oldText(Token token) const
    {
        return m_pair.oldEdition.string(recordFor(m_before, token), token);
    }
    template <typename Token>
    QString newText(Token token) const
    {
        return m_pair.newEdition.string(recordFor(m_after, token), token);
    }
    static int recordFor(const CatalogLinks::InputField &field, ParameterExtensionToken)
    {
        return field.record;
    }
    static int recordFor(const CatalogLinks::InputField &field, ParameterToken) { return field.parameter; }
    template <typename Token>
    bool isSame(Token token) const
    {
        return m_pair.oldEdition.value(recordFor(m_before, token), token)
               == m_pair.newEdition.value(recordFor(m_after, token), token);
    }

    ChangeDraft &add(Change change, CatalogChangeClass changeClass, const ProfilePairs::Set &profiles);
    ChangeDraft &add(Change change, const ProfilePairs::Set &profiles)
    {
        return add(change, changeRow(change).changeClass, profiles);
    }
    template <typename Token>
    void tell(Change change, CatalogChangeClass changeClass, const char *name, Token token);
    template <typename Token>
    void tell(Change change, const char *name, Token token)
    {
        tell(change, changeRow(change).changeClass, name, token);
    }

    void compareColumn();
    void compareFlags();
    void compareType();
    void compareUnit();
    void compareRange();
    void compareNumbers();
    void compareTexts();
    void compareLists();
    void tellIn(Change change, const ProfilePairs::Set &profiles, const QString &message);
    void tellList(Change change, CatalogChangeClass changeClass, const ProfilePairs::Set &profiles,
                  const QString &message);

    EditionPair &m_pair;
    UsedLists &m_lists;
    const ColumnRelation &m_column;
    const int m_oldItem;
    const int m_newItem;
    const CatalogLinks::InputField &m_before;
    const CatalogLinks::InputField &m_after;
};

} // namespace Orvida::Checking
