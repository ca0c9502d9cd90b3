#include "catalogs/access/CatalogConfigData.h"

#include "catalogs/access/ICatalogFileNameProvider.h"

namespace Orvida::Catalogs {

ICatalogFileNameProvider *CatalogConfigData::m_catalogFileNameProvider = nullptr;
QString CatalogConfigData::m_catalogFolderPath;

void CatalogConfigData::setCatalogFileNameProvider(ICatalogFileNameProvider *provider)
{
    m_catalogFileNameProvider = provider;
}

void CatalogConfigData::setCatalogFolderPath(const QString &path)
{
    m_catalogFolderPath = path;
}

QString CatalogConfigData::findCatalogPath(const QString &catalogId)
{
    if (!m_catalogFileNameProvider)
        return QString();
    const QString name = m_catalogFileNameProvider->getCatalogFileName(catalogId);
    return name.isEmpty() ? name : m_catalogFolderPath + name;
}

} // namespace Orvida::Catalogs
