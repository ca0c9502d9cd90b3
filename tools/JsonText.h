// How the tool writes JSON.
#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace Orvida::Tools {

/// `text`, or null for a null one: a text that the file does not give differs from an empty one.
QJsonValue jsonOf(const QString &text);

/// `number` as text: many readers of JSON hold numbers in 53 bits.
QJsonValue jsonOf(qint64 number);

/// `object` in UTF-8, without a line break at its end; what could steer a terminal is escaped. Indented, each
/// line but the first begins with `margin` spaces.
QByteArray jsonText(const QJsonObject &object, QJsonDocument::JsonFormat format, int margin = 0);

} // namespace Orvida::Tools
