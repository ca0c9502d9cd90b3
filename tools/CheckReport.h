// How findings are told.
#pragma once

#include "tools/CheckedFile.h"

namespace Orvida::Tools {

/// Tells what was found in one file or several, in one form or another.
class CheckReport
{
public:
    virtual ~CheckReport();
    Q_DISABLE_COPY(CheckReport)

    /// Takes what was found in the next file.
    virtual void add(const CheckedFile &file) = 0;
    /// There are no more files.
    virtual void finish() = 0;

protected:
    CheckReport() = default;
};

} // namespace Orvida::Tools
