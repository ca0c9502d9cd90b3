// Catalogs, and parts of them, for authors to start from. In the readable form.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Orvida::Tools {

/// A small whole catalog with every kind of field, for each profile of `profiles`, the first of which is
/// chosen. Each record has a comment of one sentence above it.
QByteArray newCatalog(const QString &key, const QString &language, const QStringList &profiles);

/// The records of one code with one field, to be pasted into a catalog. `classKey` is the key of its class.
QByteArray newCode(const QString &classKey, const QString &code);

} // namespace Orvida::Tools
