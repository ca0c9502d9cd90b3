// One input field as JSON, and how single values are written.
#pragma once

#include "catalogs/model/CatalogInputField.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace Orvida::Tools {

/// `text`, or null for a null one: a text that the file does not give stays apart from an empty one.
QJsonValue jsonOf(const QString &text);

/// `number` as text: many readers of JSON hold numbers in 53 bits.
QJsonValue jsonOf(qint64 number);

/// The field with all its properties and list entries.
QJsonObject fieldToJson(const Catalogs::CatalogInputField &field);

} // namespace Orvida::Tools
