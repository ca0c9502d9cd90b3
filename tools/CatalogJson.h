// A loaded catalog as JSON, as docs/json.md describes it.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QJsonObject>
#include <QStringList>

namespace Orvida::Tools {

/// The whole catalog: every item with its fields for each profile of `profiles`, and the codes of each.
/// Items come in display order, those outside the tree behind them by id. `style` is the file's style value.
/// Switches the catalog's current profile and puts it back.
QJsonObject catalogToJson(Catalogs::Catalog &catalog, const QStringList &profiles, qint64 style);

} // namespace Orvida::Tools
