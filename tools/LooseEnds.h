// Items and fields that hang nowhere, because they name an item that is not in the file.
#pragma once

#include "tools/CatalogFile.h"

namespace Orvida::Tools {

/// Writes a warning for each item of a loaded catalog whose parent is missing, and for each parameter
/// extension whose item is: record, field, the unknown key, and keys that come near it.
void reportLooseEnds(CatalogFile &file);

} // namespace Orvida::Tools
