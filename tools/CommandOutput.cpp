#include "tools/CommandOutput.h"

#include "tools/ExitStatus.h"

#include <cstdio>

namespace Orvida::Tools {

CommandOutput::CommandOutput() : m_stream(stdout)
{
    m_stream.setCodec("UTF-8");
}

int CommandOutput::finish(int status)
{
    m_stream.flush();
    if (m_stream.status() == QTextStream::Ok && std::fflush(stdout) == 0)
        return status;
    std::fputs("orvida-catalog: error: cannot write to standard output\n", stderr);
    return NotReadable;
}

} // namespace Orvida::Tools
