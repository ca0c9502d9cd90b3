#include "tools/RewriteOptions.h"

#include "tools/Messages.h"
#include "tools/Options.h"

#include <CLI/CLI.hpp>

namespace Orvida::Tools {

void RewriteOptions::addTo(CLI::App &command)
{
    addInputFile(command, m_fileName);
    const auto output =
        addTextOption(command, "-o,--output", m_output, "Write here, and not to standard output")
            ->option_text("OUT");
    command.add_flag("--in-place", m_isInPlace, "Write over FILE")->excludes(output);
}

OutputFile RewriteOptions::output() const
{
    return OutputFile(m_isInPlace ? m_fileName : m_output.value_or(QStringLiteral("-")));
}

bool RewriteOptions::areUsable() const
{
    const QString error = usageError();
    if (!error.isEmpty())
        printMessage(error);
    return error.isEmpty();
}

QString RewriteOptions::usageError() const
{
    const OutputFile target = output();
    if (m_isInPlace)
        return target.isStream()
                   ? QStringLiteral("%1 cannot be written over; leave --in-place out").arg(m_fileName)
                   : QString();
    return target.isSameAs(m_fileName)
               ? QStringLiteral("%1 is the input itself; to write over it, use --in-place").arg(target.name())
               : QString();
}

} // namespace Orvida::Tools
