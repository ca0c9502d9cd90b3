#include "tools/StandardOutputDiversion.h"

#include <cstdio>
#include <unistd.h>

namespace Orvida::Tools {

StandardOutputDiversion::StandardOutputDiversion()
{
    std::fflush(stdout);
    m_standardOutput = dup(STDOUT_FILENO);
    // With either of them closed there is nothing to keep apart.
    if (m_standardOutput >= 0 && dup2(STDERR_FILENO, STDOUT_FILENO) < 0) {
        close(m_standardOutput);
        m_standardOutput = -1;
    }
}

StandardOutputDiversion::~StandardOutputDiversion()
{
    if (m_standardOutput < 0)
        return;
    std::fflush(stdout);
    dup2(m_standardOutput, STDOUT_FILENO);
    close(m_standardOutput);
}

} // namespace Orvida::Tools
