// Says in words why a catalog file did not load.
#pragma once

#include "catalogs/reading/CatalogReadFailure.h"

#include <QString>

namespace Orvida::Tools {

/// What is wrong with the file `name`, where, and how to mend it: two lines, each with its line break.
QString loadFailureText(const QString &name, const Catalogs::CatalogReadFailure &failure);

} // namespace Orvida::Tools
