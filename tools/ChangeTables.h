// Changes between two editions of a catalog as CSV.
#pragma once

#include "checking/CatalogComparison.h"
#include "tools/CommandOutput.h"

#include <QByteArray>

namespace Orvida::Tools {

/// Prints all changes, a row each, for spreadsheets: cells that these would take for formulas begin with an
/// apostrophe. Hidden changes only with `listsAll`.
void printChangeTable(CommandOutput &output, const Checking::CatalogComparison &comparison, bool listsAll);

/// What was renamed, a row each, as it stands in the catalogs: programs read it. Weak pairs only with
/// `listsWeak`.
QByteArray renameTable(const QVector<Checking::CatalogRename> &renames, bool listsWeak);

} // namespace Orvida::Tools
