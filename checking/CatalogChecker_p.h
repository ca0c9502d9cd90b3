// What checking a file and comparing it with another have in common. For the checking library's own use.
#pragma once

#include "catalogs/reading/CatalogReadFailure.h"
#include "checking/findings/FindingReport_p.h"
#include "checking/reading/LocatedCatalog_p.h"

#include <QString>

namespace Orvida::Checking {

class Check;

/// What reading a file gives.
struct Reading
{
    LocatedCatalog catalog;
    Catalogs::CatalogReadFailure firstRefusal;
    /// Why the file could not be read to its end.
    Catalogs::CatalogReadFailure fault;
};

/// Reads the file `fileName` once.
Reading readCatalogFile(const QString &fileName, bool isReadable);
/// Why the file does not load; no failure when it does.
const Catalogs::CatalogReadFailure &failureOf(const Reading &reading);

/// All rules as the table has them.
FindingReport::Settings defaultSettings();
/// Asks the rules, each function once.
void askRules(Check &check);

} // namespace Orvida::Checking
