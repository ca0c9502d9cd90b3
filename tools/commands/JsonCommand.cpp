#include "tools/commands/JsonCommand.h"

#include "tools/CatalogJson.h"
#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/LoadReport.h"
#include "tools/Options.h"

#include <CLI/CLI.hpp>

namespace Orvida::Tools {

void JsonCommand::addOptions(CLI::App &command)
{
    addFile(command, m_file);
    command.add_flag("--compact", m_isCompact, "All on one line, without white space");
}

int JsonCommand::run()
{
    CatalogFile file = CatalogFile::load(m_file);
    if (!reportLoad(file))
        return NotReadable;
    CommandOutput output;
    CatalogJson json(m_isCompact ? QJsonDocument::Compact : QJsonDocument::Indented,
                     [&output](const QByteArray &text) { output.write(text); });
    json.write(file.catalog(), file.profiles(), file.style());
    return output.finish(Done);
}

} // namespace Orvida::Tools
