#include "tools/ProgressLine.h"

#include "tools/OutputStyle.h"

#include <cstdio>

#include <unistd.h>

namespace Orvida::Tools {

ProgressLine::ProgressLine(const QString &what)
    : m_what(OutputStyle::singleLine(what)), m_isTerminal(isatty(STDERR_FILENO))
{
    m_timer.start();
}

ProgressLine::~ProgressLine()
{
    if (m_isShown)
        std::fputs("\r\x1b[K", stderr);
}

void ProgressLine::show(qint64 done, qint64 all)
{
    if (!m_isTerminal || all <= 0 || m_timer.elapsed() < m_nextTime)
        return;
    m_isShown = true;
    m_nextTime = m_timer.elapsed() + 100;
    const int percent = int(100 * qMin(done, all) / all);
    std::fprintf(stderr, "\r\x1b[K%s: %d %%", m_what.toUtf8().constData(), percent);
    std::fflush(stderr);
}

} // namespace Orvida::Tools
