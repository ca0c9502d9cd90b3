// What all subcommands of orvida-catalog have in common.
#pragma once

#include <QtGlobal>

namespace CLI {
class App;
}

namespace Orvida::Tools {

/// One subcommand: its name, its options and what it does.
class Command
{
public:
    virtual ~Command();
    Q_DISABLE_COPY(Command)

    /// Adds the command to the command line; parsing then fills its options.
    void addTo(CLI::App &app);
    /// Whether the command line names this command.
    bool isChosen() const;

    /// Does what was asked for and returns the exit status of the process.
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
