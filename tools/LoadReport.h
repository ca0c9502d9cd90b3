// Reports how the load of a catalog file went.
#pragma once

#include "tools/CatalogFile.h"

namespace Orvida::Tools {

/// Writes to standard error why the file is not loaded; of a loaded one, what its author should know: that it
/// seems to be in the other form, has no codes, or what of it does not load as it was written. Whether it is
/// loaded.
[[nodiscard]] bool reportLoad(CatalogFile &file);

} // namespace Orvida::Tools
