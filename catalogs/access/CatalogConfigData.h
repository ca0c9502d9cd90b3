// Where catalog files are: what the host sets once, at start-up.
#pragma once

#include "catalogs/CatalogsExport.h"

#include <QString>

class ICatalogFileNameProvider;

namespace Orvida::Catalogs {

/// The process-wide location of catalog files: a folder, and the host's rule that names their files.
///
/// Not guarded: the host sets both before it asks for the first catalog, and not while another thread may
/// ask for one.
class CatalogConfigData
{
public:
    CatalogConfigData() = delete;

    /// Replaces the provider; null switches path look-up off. Not owned.
    ORVIDA_CATALOGS_EXPORT static void setCatalogFileNameProvider(ICatalogFileNameProvider *provider);

    /// Replaces the folder. It is put before file names as it is: end it with a separator, unless the
    /// provider's names begin with one. An empty or null folder leaves the names as they are.
    ORVIDA_CATALOGS_EXPORT static void setCatalogFolderPath(const QString &path);

    /// The folder followed directly by the provider's name for the catalog `catalogId`.
    ///
    /// Null without a provider; the provider's empty answer, without the folder, for an identifier that it
    /// does not know. Does not check that the file exists. Any thread may call it.
    ORVIDA_CATALOGS_EXPORT static QString findCatalogPath(const QString &catalogId);

private:
    // Not exported, as the class as a whole is not: hosts reach them through the functions only.
    static ICatalogFileNameProvider *m_catalogFileNameProvider;
    static QString m_catalogFolderPath;
};

} // namespace Orvida::Catalogs
