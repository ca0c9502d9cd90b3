// Input fields in words.
#pragma once

#include "catalogs/model/CatalogInputField.h"

#include <QList>
#include <QPair>
#include <QString>

namespace Orvida::Tools {

/// The field in one line: caption, then what matters most of it. `listName` is the name of its value list,
/// empty when it is not known.
QString fieldLine(const Catalogs::CatalogInputField &field, const QString &listName);

/// Everything that the field knows and that says something, as pairs of a label and a text; its list
/// entries are not among them.
QList<QPair<QString, QString>> fieldProperties(const Catalogs::CatalogInputField &field,
                                               const QString &listName);

} // namespace Orvida::Tools
