#include "tools/CommandLine.h"

#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/Messages.h"

#include <QString>

#include <cstdio>
#include <string>

namespace Orvida::Tools {

namespace {

constexpr const char *footer =
    "Exit status: 0 done, 1 the answer is no (an unknown code, a text that was left as it is), 2 a file\n"
    "could not be read, loaded or written, 3 wrong usage.";

std::string helpText(const CLI::App &app)
{
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app.help() : chosen.front()->help(app.get_name());
}

int print(const std::string &text)
{
    CommandOutput output;
    output.write(QByteArray::fromStdString(text));
    return output.finish(Done);
}

// Help and version come as "errors" that ended well.
int endWithoutRunning(const CLI::App &app, const CLI::ParseError &error)
{
    if (dynamic_cast<const CLI::CallForHelp *>(&error))
        return print(helpText(app));
    if (error.get_exit_code() == 0)
        return print(error.what() + std::string("\n"));
    printMessage(QString::fromUtf8(error.what()));
    std::fprintf(stderr, "\n%s", helpText(app).c_str());
    return WrongUsage;
}

} // namespace

int runCommandLine(int argc, char **argv, const std::vector<std::unique_ptr<Command>> &commands)
{
    CLI::App app("Looks into the coding catalogs of inspection standards.", "orvida-catalog");
    app.set_version_flag("--version", "orvida-catalog " ORVIDA_VERSION);
    app.require_subcommand(1);
    app.footer(footer);
    for (const auto &command : commands)
        command->addTo(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return endWithoutRunning(app, error);
    }
    for (const auto &command : commands) {
        if (command->isChosen())
            return command->run();
    }
    return WrongUsage;
}

} // namespace Orvida::Tools
