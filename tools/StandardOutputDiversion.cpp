#include "tools/StandardOutputDiversion.h"

#include "tools/OutputStyle.h"

#include <QFile>

#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace Orvida::Tools {

// In memory, where there is room when no folder can be written to.
StandardOutputDiversion::StandardOutputDiversion() : m_diverted(fdopen(memfd_create("diverted", 0), "w+"))
{
    std::fflush(stdout);
    m_standardOutput = dup(STDOUT_FILENO);
    // Without memory for it, all goes straight to standard error.
    const int target = m_diverted ? fileno(m_diverted) : STDERR_FILENO;
    if (m_standardOutput >= 0 && dup2(target, STDOUT_FILENO) < 0) {
        close(m_standardOutput);
        m_standardOutput = -1;
    }
}

StandardOutputDiversion::~StandardOutputDiversion()
{
    if (m_standardOutput >= 0) {
        std::fflush(stdout);
        dup2(m_standardOutput, STDOUT_FILENO);
        close(m_standardOutput);
    }
    if (!m_diverted)
        return;
    try {
        showDiverted();
    } catch (const std::bad_alloc &) {
        std::fputs("orvida-catalog: error: not enough memory to show all messages\n", stderr);
    }
    std::fclose(m_diverted);
}

void StandardOutputDiversion::showDiverted()
{
    std::rewind(m_diverted);
    QFile diverted;
    if (!diverted.open(m_diverted, QIODevice::ReadOnly))
        return;
    while (!diverted.atEnd()) {
        QByteArray line = diverted.readLine();
        if (line.endsWith('\n'))
            line.chop(1);
        std::fputs(
            (OutputStyle::singleLine(QString::fromUtf8(line)) + QLatin1Char('\n')).toUtf8().constData(),
            stderr);
    }
}

} // namespace Orvida::Tools
