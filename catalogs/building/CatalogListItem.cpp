#include "catalogs/building/CatalogListItem.h"

#include "shared/CLogger.h"

namespace Orvida::Catalogs {

namespace {

using Logging::CLogger;

const QString logCategory = QStringLiteral("CatalogListItem");

} // namespace

CatalogListItem::CatalogListItem(const QString &key, const QString &caption, const QString &itemText,
                                 const QString &placeHolder)
    : ListItem(QVariant(key), caption, itemText), m_placeHolder(placeHolder)
{
    CLogger::logMessage(CLogger::Debug, logCategory,
                        QStringLiteral("Catalog item created key:") + key + QStringLiteral(" value:")
                            + itemText);
    if (key.trimmed().isEmpty())
        CLogger::logMessage(CLogger::Error, logCategory,
                            QStringLiteral("Catalog item created with empty key!"));
}

} // namespace Orvida::Catalogs
