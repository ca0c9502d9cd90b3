// The files that benchmarks read.
#pragma once

#include "benchmarks/CatalogGenerator.h"

#include <QString>

namespace Orvida::Benchmarks {

/// Path of a generated catalog of about `size` bytes; written on the first call, and removed when the process
/// ends. One thread at a time.
QString catalogFile(qint64 size,
                    CatalogGenerator::StylePlace stylePlace = CatalogGenerator::StylePlace::First);

} // namespace Orvida::Benchmarks
