// Catalogs, and parts of them, for authors to start from. In the readable form.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Orvida::Tools {

/// A small whole catalog with every kind of field, for each profile of `profiles`, the first of which is
/// chosen. A sentence stands above each record.
QByteArray newCatalog(const QString &key, const QString &language, const QStringList &profiles);

/// The records of one code with one field, to be pasted into a catalog. `classKey` is the key of its class.
QByteArray newCode(const QString &classKey, const QString &code);

} // namespace Orvida::Tools
