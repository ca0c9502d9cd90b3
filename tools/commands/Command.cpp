#include "tools/commands/Command.h"

namespace Orvida::Tools {

Command::~Command() = default;

void Command::addTo(CLI::App &app)
{
    m_command = app.add_subcommand(m_name, m_help);
    addOptions(*m_command);
}

} // namespace Orvida::Tools
