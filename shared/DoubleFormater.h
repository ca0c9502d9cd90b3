// The host's number formatter, as far as the catalog library calls it.
#pragma once

#include "shared/SharedExport.h"

#include <QString>

namespace Orvida::Shared {

/// Formats numbers that are held as text. Any thread may call it.
class ORVIDA_SHARED_EXPORT DoubleFormater
{
public:
    /// `value` with as many decimals as `format` has digits ("0" or "#") after its first point.
    ///
    /// Reads and writes numbers of the C locale: a decimal point, no group separators. A value that is not a
    /// finite number, and any value when the format is empty, is returned unchanged.
    static QString toString(const QString &value, const QString &format);
};

} // namespace Orvida::Shared
