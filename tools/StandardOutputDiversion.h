// Keeps the library's own writing out of what the tool prints.
#pragma once

#include <QtGlobal>

namespace Orvida::Tools {

/// While it lives, what the process writes to standard output goes to standard error: the library reports
/// orphans there, and the tool's output must hold only what was asked for.
class StandardOutputDiversion
{
public:
    StandardOutputDiversion();
    ~StandardOutputDiversion();
    Q_DISABLE_COPY(StandardOutputDiversion)

private:
    int m_standardOutput = -1;
};

} // namespace Orvida::Tools
