// The categories under which the library logs: the names of its classes. For the library's own use.
#pragma once

#include <QString>

namespace Orvida::Catalogs {

inline const QString catalogListItemCategory = QStringLiteral("CatalogListItem");
inline const QString catalogLoaderCategory = QStringLiteral("CatalogLoader");
// The parser's own. It writes nothing itself; hosts may configure the category all the same.
inline const QString catalogXmlParserCategory = QStringLiteral("CatalogXMLParser");

} // namespace Orvida::Catalogs
