#include "catalogs/building/CatalogListItem.h"

#include "catalogs/LogCategories_p.h"
#include "shared/CLogger.h"

namespace Orvida::Catalogs {

using Logging::CLogger;

CatalogListItem::CatalogListItem(const QString &key, const QString &caption, const QString &itemText,
                                 const QString &placeHolder)
    : ListItem(QVariant(key), caption, itemText), m_placeHolder(placeHolder)
{
    CLogger::logMessage(CLogger::Debug, catalogListItemCategory,
                        QStringLiteral("Catalog item created key:") + key + QStringLiteral(" value:")
                            + itemText);
    if (key.trimmed().isEmpty())
        CLogger::logMessage(CLogger::Error, catalogListItemCategory,
                            QStringLiteral("Catalog item created with empty key!"));
}

} // namespace Orvida::Catalogs
