// The files that benchmarks read.
#pragma once

#include "benchmarks/CatalogGenerator.h"

#include <QString>

namespace Orvida::Benchmarks {

/// Path of a generated catalog of about `size` bytes; written when it is first asked for, and removed when
/// the process ends. Not for several threads at once.
QString catalogFile(qint64 size,
                    CatalogGenerator::StylePlace stylePlace = CatalogGenerator::StylePlace::First);

} // namespace Orvida::Benchmarks
