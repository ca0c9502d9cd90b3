#include "tools/commands/HtmlCommand.h"

#include "tools/ExitStatus.h"
#include "tools/LoadReport.h"
#include "tools/Messages.h"
#include "tools/Options.h"
#include "tools/OutputFile.h"
#include "tools/page/CatalogPage.h"

#include <CLI/CLI.hpp>

namespace Orvida::Tools {

void HtmlCommand::addOptions(CLI::App &command)
{
    addFile(command, m_file);
    addTextOption(command, "-o,--output", m_output, "Write here, and not to standard output")
        ->option_text("OUT");
    command.add_flag("--no-check", m_isUnchecked, "Leave out what a check of the file finds");
}

int HtmlCommand::run()
{
    const OutputFile output(m_output.value_or(QStringLiteral("-")));
    if (output.isSameAs(m_file.fileName)) {
        printMessage(
            QStringLiteral("%1 is the catalog itself; give the page another name").arg(output.name()));
        return WrongUsage;
    }
    CatalogFile file = CatalogFile::load(m_file);
    if (!reportLoad(file))
        return NotReadable;
    return output.write(CatalogPage(file, !m_isUnchecked).make(), Done);
}

} // namespace Orvida::Tools
