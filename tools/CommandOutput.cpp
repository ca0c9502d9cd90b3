#include "tools/CommandOutput.h"

#include "tools/ExitStatus.h"
#include "tools/FileFailure.h"
#include "tools/Messages.h"

#include <cstdio>

namespace Orvida::Tools {

CommandOutput::CommandOutput()
{
    m_file.open(stdout, QIODevice::WriteOnly);
    m_stream.setDevice(&m_file);
    m_stream.setCodec("UTF-8");
}

void CommandOutput::write(const QByteArray &bytes)
{
    m_stream.flush();
    m_file.write(bytes);
}

int CommandOutput::finish(int status)
{
    m_stream.flush();
    if (m_stream.status() == QTextStream::Ok && m_file.flush() && m_file.error() == QFileDevice::NoError
        && std::fflush(stdout) == 0)
        return status;
    printMessage(QStringLiteral("error: cannot write to standard output: ") + errorTextOf(m_file));
    return NotReadable;
}

} // namespace Orvida::Tools
