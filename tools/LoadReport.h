// Says in words what loading a catalog file brought to light.
#pragma once

#include "tools/CatalogFile.h"

namespace Orvida::Tools {

/// Writes to standard error why the file `name` was not read: what is wrong, where, and how to fix it.
void reportFailure(const QString &name, const Catalogs::CatalogReadFailure &failure);

/// Writes to standard error why the file is not loaded: what is wrong, where, and how to fix it; of a loaded
/// one, what its author should know: no codes at all, items and fields that hang nowhere. Whether it is
/// loaded.
[[nodiscard]] bool reportLoad(CatalogFile &file);

} // namespace Orvida::Tools
