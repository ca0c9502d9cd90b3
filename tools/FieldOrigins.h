// Finds the records from which a field was built.
#pragma once

#include "catalogs/model/Catalog.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace Orvida::Tools {

/// Finds the parameter extension of a field: the one that names the field's item and its column. A field does
/// not hold its extension, nor the name of its list.
class FieldOrigins
{
public:
    /// `records` must outlive the object.
    explicit FieldOrigins(const Catalogs::CatalogXMLParser &records);

    /// Keys of the extensions that name `item`, sorted.
    QStringList extensionsOf(const Catalogs::CatalogItem &item) const
    {
        return m_extensions.value(item.id());
    }

    /// Those of them that also name the column of `field`. When there are several, it is unknown which of
    /// them the field was built from.
    QStringList extensionsOf(const Catalogs::CatalogItem &item,
                             const Catalogs::CatalogInputField &field) const;

    /// Id of the list class of `field`, a field of `item`; empty when it has none or when it is unknown.
    QString listNameOf(const Catalogs::CatalogItem &item, const Catalogs::CatalogInputField &field) const;

private:
    const Catalogs::CatalogXMLParser &m_records;
    // Keys of extensions by item.
    QHash<QString, QStringList> m_extensions;
};

} // namespace Orvida::Tools
