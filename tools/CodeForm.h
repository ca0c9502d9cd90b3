// Prints one code as the form that an inspector fills in.
#pragma once

#include "catalogs/model/Catalog.h"
#include "tools/FieldSources.h"
#include "tools/OutputStyle.h"

#include <QTextStream>

namespace Orvida::Tools {

/// Prints a code: its path, its own properties, and its fields for the catalog's current profile with all
/// that they know and their list entries.
class CodeForm
{
public:
    /// All arguments must outlive the form. With `sources` the form also shows where each property comes
    /// from.
    CodeForm(QTextStream &out, const OutputStyle &style, const FieldOrigins &origins,
             const FieldSources *sources)
        : m_out(out), m_style(style), m_origins(origins), m_sources(sources)
    {
    }

    void print(Catalogs::Catalog &catalog, Catalogs::CatalogItem &item);

private:
    void printHead(Catalogs::Catalog &catalog, const Catalogs::CatalogItem &item);
    void printField(const Catalogs::CatalogItem &item, const Catalogs::CatalogInputField &field);
    void printSources(const Catalogs::CatalogItem &item, const Catalogs::CatalogInputField &field,
                      const QString &listName);
    void printEntries(const QList<Shared::ListItem> &entries);
    void printProperty(const QString &indentation, const QString &label, const QString &text,
                       const QString &source = {});

    QTextStream &m_out;
    const OutputStyle &m_style;
    const FieldOrigins &m_origins;
    const FieldSources *m_sources;
};

} // namespace Orvida::Tools
