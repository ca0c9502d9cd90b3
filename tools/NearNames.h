// Finds names that somebody may have meant.
#pragma once

#include <QString>
#include <QStringList>

namespace Orvida::Tools {

/// Up to five of `names` that look like `name`, the nearest first: names that differ in letter case only,
/// in a few letters, or that begin with it.
QStringList nearNames(const QString &name, const QStringList &names);

/// Reports on standard error that there is no "`what`", in which %1 is replaced by `name`, and which of
/// `names` are similar. Returns the exit status for that answer.
int reportUnknown(const QString &what, const QString &name, const QStringList &names);

} // namespace Orvida::Tools
