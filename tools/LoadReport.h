// Says in words what loading a catalog file brought to light.
#pragma once

#include "tools/CatalogFile.h"

namespace Orvida::Tools {

/// Writes to standard error why the file is not loaded; of a loaded one, what its author should know: that it
/// seems to be in the other form, has no codes, or items and fields that hang nowhere. Whether it is loaded.
[[nodiscard]] bool reportLoad(CatalogFile &file);

} // namespace Orvida::Tools
