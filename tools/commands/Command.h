// What all subcommands of orvida-catalog have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <QtGlobal>

namespace Orvida::Tools {

/// One subcommand: its name, its options and what it does.
class Command
{
public:
    virtual ~Command();
    Q_DISABLE_COPY(Command)

    /// Adds the command to the command line; it then fills its options while the call is taken apart.
    void addTo(CLI::App &app);
    /// Whether the call was for this command.
    bool isChosen() const { return m_command->parsed(); }

    /// Does what was asked for and gives the exit status of the process.
    virtual int run() = 0;

protected:
    /// `name` and `help` are literals.
    Command(const char *name, const char *help) : m_name(name), m_help(help) {}

private:
    virtual void addOptions(CLI::App &command) = 0;

    const char *m_name;
    const char *m_help;
    CLI::App *m_command = nullptr;
};

} // namespace Orvida::Tools
