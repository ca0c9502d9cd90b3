// What a host implements to say which file holds a catalog.
#pragma once

#include "catalogs/CatalogsExport.h"

#include <QString>

/// Maps catalog identifiers to file names. The host implements it, owns the object, and keeps it alive for
/// as long as catalogs may be asked for.
class ORVIDA_CATALOGS_EXPORT ICatalogFileNameProvider
{
public:
    /// The name of the file of the catalog `catalogId`, with its extension and with any leading path parts;
    /// an empty text for an unknown catalog.
    ///
    /// Called from every thread that asks for catalogs, possibly from several at once and with the
    /// manager's lock held: it must not ask the manager for a catalog.
    virtual QString getCatalogFileName(const QString &catalogId) const = 0;

    virtual ~ICatalogFileNameProvider();
};
