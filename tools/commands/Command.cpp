#include "tools/commands/Command.h"

#include <CLI/CLI.hpp>

namespace Orvida::Tools {

Command::~Command() = default;

void Command::addTo(CLI::App &app)
{
    m_command = app.add_subcommand(m_name, m_help);
    addOptions(*m_command);
}

bool Command::isChosen() const
{
    return m_command->parsed();
}

} // namespace Orvida::Tools
