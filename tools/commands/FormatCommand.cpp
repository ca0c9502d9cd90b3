#include "tools/commands/FormatCommand.h"

#include "tools/ExitStatus.h"
#include "tools/InputFile.h"
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

int reportDifference(const QString &name, const QString &call, const QByteArray &before,
                     const QByteArray &after)
{
    if (before == after)
        return Done;
    printWarning(name, {differingLine(before, after), 1},
                 QStringLiteral("from here on the layout is another one"));
    printRemedy(call);
    return AnswerIsNo;
}

} // namespace

void FormatCommand::addOptions(CLI::App &command)
{
    m_options.addTo(command);
    command.add_flag("--check", m_isCheck, "Write nothing; exit with 1 when something would change")
        ->excludes(command.get_option("--output"))
        ->excludes(command.get_option("--in-place"));
}

int FormatCommand::run()
{
    if (!m_isCheck && !m_options.areUsable())
        return WrongUsage;
    InputFile input(m_options.fileName());
    if (!input.read()) {
        printFailure(input.name(), input.failure());
        return NotReadable;
    }
    const QByteArray before = input.bytes();
    const CatalogLayout layout(before);
    if (layout.failure()) {
        printFailure(input.name(), explained(*layout.failure(), input.path()));
        return NotReadable;
    }
    if (!layout.obstacle().isEmpty())
        printWarning(input.name(), layout.obstaclePosition(),
                     QStringLiteral("the file is kept as it is: ") + layout.obstacle());
    if (m_isCheck) {
        const QString option =
            m_options.fileName() == QLatin1String("-") ? QString() : QStringLiteral("--in-place ");
        return reportDifference(input.name(),
                                QStringLiteral("orvida-catalog format ") + option + m_options.fileName(),
                                before, layout.document());
    }
    if (m_options.isInPlace() && layout.document() == before)
        return Done;
    return m_options.output().write(layout.document(), Done);
}

} // namespace Orvida::Tools
