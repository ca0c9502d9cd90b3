// Changes between two editions of a catalog as JSON.
#pragma once

#include "checking/CatalogComparison.h"
#include "tools/CommandOutput.h"

#include <QString>

namespace Orvida::Tools {

/// Prints a comparison of the files with these names. Hidden changes are only counted, unless `listsAll` is
/// true.
void printChangeJson(CommandOutput &output, const Checking::CatalogComparison &comparison,
                     const QString &oldName, const QString &newName, bool listsAll);

} // namespace Orvida::Tools
