// The forms of the codes on the page of a catalog.
#pragma once

#include "catalogs/model/CatalogItem.h"
#include "tools/FieldProperties.h"
#include "tools/page/HtmlWriter.h"
#include "tools/page/PageLists.h"
#include "tools/page/PageSource.h"
#include "tools/page/ProfileVariants.h"

#include <QHash>
#include <QString>
#include <QVector>

namespace Orvida::Tools {

/// Writes each code as the form that an inspector meets, for all profiles at once.
class PageForms
{
public:
    /// Both must outlive the object. The lists of the fields go to `lists`.
    PageForms(const PageSource &source, PageLists &lists)
        : m_source(source), m_lists(lists), m_all(allProfiles(source.profiles.size()))
    {
    }

    /// Writes all forms, a section per branch of the tree. Uses the catalog up: its fields are gone
    /// afterwards, and its profile is another one.
    void write(HtmlWriter &out);

private:
    using Item = Catalogs::CatalogItem;

    /// A line of a field, such as its range.
    struct Line
    {
        QString label;
        QString words;
        QString list;    ///< Of a line with values: the id of the list.
        QString entries; ///< Of one whose list is not known: the values themselves.
    };

    /// A field in the profiles that have it.
    struct Field
    {
        QString column;
        QString caption;
        ProfileVariants<Line> lines;
    };

    void writeForm(Item &item, HtmlWriter &out);
    void writeHead(const Item &item, HtmlWriter &out) const;
    void writeObservationText(const Item &item, HtmlWriter &out) const;
    void writeProperties(const Item &item, HtmlWriter &out) const;
    void writeField(const Variant<Field> &field, const QString &anchor, HtmlWriter &out) const;
    void writeLine(const Variant<Line> &line, const QVector<int> &profiles, HtmlWriter &out) const;
    ProfileVariants<Field> takeFields(Item &item);
    void addLines(const Item &item, const Catalogs::CatalogInputField &field, int profile, Field &merged);
    QString fieldWithPlaceholder(const QString &placeholder, const Item &item) const;

    const PageSource &m_source;
    PageLists &m_lists;
    const QVector<int> m_all; // numbers of all profiles
};

} // namespace Orvida::Tools
