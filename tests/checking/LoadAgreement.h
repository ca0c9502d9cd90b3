// Compares a check of a catalog file with a load of it. For the tests and the fuzz target of checking.
#pragma once

#include <QString>

namespace Orvida::Tests {

/// The first point in which a check of the file at `path` and a load of it disagree, in words; nothing when
/// they agree. Checks both forms, as the form that hosts load and as the readable one.
QString disagreementOn(const QString &path);

} // namespace Orvida::Tests
