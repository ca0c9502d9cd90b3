// Tells by which list class a field got its entries.
#pragma once

#include "catalogs/model/Catalog.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include <QMultiHash>
#include <QString>

namespace Orvida::Tools {

/// Looks the list classes of fields up in the records of the file: a field holds the entries of its list,
/// but not the name.
class ListNames
{
public:
    /// Keeps what it needs of `records`.
    explicit ListNames(const Catalogs::CatalogXMLParser &records);

    /// Id of the list class of `field`, a field of `item`; empty when it has none or when two extensions
    /// of the item differ in nothing but their list.
    QString nameOf(const Catalogs::CatalogItem &item, const Catalogs::CatalogInputField &field) const;

private:
    // The extensions that have a list, by the key of their item.
    QMultiHash<QString, Catalogs::CatalogParserParamExtended> m_extensions;
};

} // namespace Orvida::Tools
