// One of two editions of a catalog that are compared. For the comparison's own use.
#pragma once

#include "checking/CatalogChange.h"
#include "checking/CatalogChecker_p.h"
#include "checking/reading/CatalogLinks_p.h"
#include "checking/rules/Check_p.h"

#include <vector>

namespace Orvida::Checking {

/// What was read of the file of an edition, and look-ups by what is the same in both editions.
///
/// Texts have numbers that are the same in both: those of the old edition, and greater ones for texts that
/// only the new one has. Where a number is that of this edition's own table, its type is `Symbol`.
class Edition
{
public:
    /// The number of a text in both editions; 0 is the empty text.
    using Text = int;

    struct Item
    {
        Text code = 0;
        Text key = 0;
        Text caption = 0;
        int sortOrder = 0;
        Section kind = Section::Unknown;
        /// Place in the order in which hosts show the tree, and of the last item below it; those outside of
        /// the tree follow by code.
        int position = 0;
        int last = 0;
        /// A number for the set of columns that its fields and those of the items above it fill.
        quint64 columns = 0;

        /// What it is known by.
        Text name() const { return code != 0 ? code : key; }
    };

    /// Checks the file that was read from `fileName`. The numbers of texts are those of `old`, or its own
    /// ones without.
    Edition(const QString &fileName, Reading &&reading, const Edition *old);
    Q_DISABLE_COPY(Edition)

    const LocatedCatalog &catalog() const { return m_reading.catalog; }
    const CatalogLinks &links() const { return m_links; }
    const Check &check() const { return m_check; }
    int errorCount() const { return m_report.countOfSeverity[std::size_t(CatalogSeverity::Error)]; }

    Text common(Symbol symbol) const { return m_common.empty() ? symbol : m_common[std::size_t(symbol)]; }
    template <typename Token>
    Text value(int record, Token token) const
    {
        return record < 0 ? 0 : common(catalog().value(record, token));
    }
    /// The text of a field; empty for a record that is missing.
    template <typename Token>
    QStringView text(int record, Token token) const
    {
        return record < 0 ? QStringView() : catalog().text(record, token);
    }
    QStringView text(Symbol symbol) const { return catalog().texts.text(symbol); }
    /// The same as a text of its own; null instead of empty.
    template <typename Token>
    QString string(int record, Token token) const
    {
        const QStringView view = text(record, token);
        return view.isEmpty() ? QString() : view.toString();
    }

    /// By number among the items of `links()`.
    const Item &item(int index) const { return m_items[std::size_t(index)]; }
    int itemCount() const { return int(m_items.size()); }
    /// What an item is known by; "root" for the root.
    QString nameOf(int item) const;
    int recordOf(int item) const { return item < 0 ? -1 : m_links.item(item).record; }
    QStringView captionOf(int item) const;
    QStringView observationTextOf(int item) const;
    int parentOf(int item) const { return m_links.item(item).parent; }
    bool isInTree(int item) const { return m_links.isInTree(item); }
    /// Whether item `a` comes before `b` when nothing but their texts counts: by code, then by key.
    bool isBefore(int a, int b) const;

    /// The first record of this kind; -1 when there is none.
    int firstRecord(Section kind) const;
    /// After the start tag of a field, or of the record when it has no such field.
    CatalogChangePlace placeOf(int record, int token = -1) const;

private:
    void numberTexts(const Edition &old);
    void describeItems();
    void orderItems();
    void describeColumns();
    void countColumns(int item, int sign, std::vector<int> &counts, quint64 &set) const;

    const QString m_fileName;
    const Reading m_reading;
    const CatalogLinks m_links;
    const FindingReport::Settings m_settings;
    /// The file is compared in the form that it is said to be in.
    const std::optional<ClearTexts> m_clearTexts;
    FindingReport m_report;
    Check m_check;
    std::vector<Text> m_common;
    std::vector<Item> m_items;
};

} // namespace Orvida::Checking
