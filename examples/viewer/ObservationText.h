// The sentence that an observation reads as.
#pragma once

#include <QMap>
#include <QString>

/// `text` with each placeholder of `values`, such as "@CLK", replaced by its value, and with "…" where the
/// value is empty. Where several placeholders begin, the longest one counts. What else begins with "@" stays.
QString filledObservationText(const QString &text, const QMap<QString, QString> &values);
