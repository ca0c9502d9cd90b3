#include "tools/commands/FormatCommand.h"

#include "tools/ExitStatus.h"
#include "tools/InputFile.h"
#include "tools/Options.h"
#include "tools/OutputFile.h"
#include "tools/layout/CatalogLayout.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace Orvida::Tools {

namespace {

// The line in which two documents begin to differ.
int differingLine(const QByteArray &a, const QByteArray &b)
{
    const auto end = std::mismatch(a.cbegin(), a.cend(), b.cbegin(), b.cend()).first;
    return static_cast<int>(std::count(a.cbegin(), end, '\n')) + 1;
}

int reportDifference(const QString &name, const QByteArray &before, const QByteArray &after)
{
    if (before == after)
        return Done;
    printWarning(name, {differingLine(before, after), 1},
                 QStringLiteral("from here on the layout is another one"));
    printRemedy(QStringLiteral("orvida-catalog format --in-place %1").arg(name));
    return AnswerIsNo;
}

} // namespace

void FormatCommand::addOptions(CLI::App &command)
{
    addInputFile(command, m_fileName);
    const auto check =
        command.add_flag("--check", m_isCheck, "Write nothing; exit with 1 when something would change");
    const auto output =
        addTextOption(command, "-o,--output", m_output, "Write here, and not to standard output")
            ->option_text("OUT")
            ->excludes(check);
    command.add_flag("--in-place", m_isInPlace, "Write over FILE when something changes")
        ->excludes(output)
        ->excludes(check);
}

int FormatCommand::run()
{
    const OutputFile output(m_isInPlace ? m_fileName : m_output.value_or(QStringLiteral("-")));
    if (m_isInPlace && output.isStream()) {
        printMessage(QStringLiteral("%1 cannot be written over; leave --in-place out").arg(m_fileName));
        return WrongUsage;
    }
    if (!m_isInPlace && !m_isCheck && output.isSameAs(m_fileName)) {
        printMessage(
            QStringLiteral("%1 is the input itself; to write over it, use --in-place").arg(output.name()));
        return WrongUsage;
    }
    InputFile input(m_fileName);
    if (!input.read()) {
        printFailure(input.name(), input.failure());
        return NotReadable;
    }
    const QByteArray before = input.bytes();
    const CatalogLayout layout(before);
    if (layout.failure()) {
        printFailure(input.name(), *layout.failure());
        return NotReadable;
    }
    if (!layout.obstacle().isEmpty())
        printWarning(input.name(), layout.obstaclePosition(),
                     QStringLiteral("the file is kept as it is: ") + layout.obstacle());
    if (m_isCheck)
        return reportDifference(input.name(), before, layout.document());
    return m_isInPlace && layout.document() == before ? Done : output.write(layout.document(), Done);
}

} // namespace Orvida::Tools
