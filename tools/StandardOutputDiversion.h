// Keeps the library's own writing out of what the tool prints.
#pragma once

#include <QtGlobal>

#include <cstdio>

namespace Orvida::Tools {

/// While it lives, what the process writes to standard output is kept; then it goes to standard error, made
/// fit for a terminal. The library reports orphans there, with texts of the file, and the tool's output must
/// hold only what was asked for.
class StandardOutputDiversion
{
public:
    StandardOutputDiversion();
    ~StandardOutputDiversion();
    Q_DISABLE_COPY(StandardOutputDiversion)

private:
    void showDiverted();

    std::FILE *m_diverted;
    int m_standardOutput = -1;
};

} // namespace Orvida::Tools
