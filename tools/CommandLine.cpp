#include "tools/CommandLine.h"

#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/Messages.h"
#include "tools/NearNames.h"

#include <CLI/CLI.hpp>
#include <QString>
#include <QStringList>

#include <algorithm>
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

// The parser reports --help and --version as errors with exit code 0.
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

// A first argument that is no option must be a command. The parser would only say that one is missing.
bool namesNoCommand(const CLI::App &app, const QString &word)
{
    const auto commands = app.get_subcommands(nullptr);
    const bool isKnown = std::any_of(commands.begin(), commands.end(), [&word](const CLI::App *command) {
        return word == QString::fromStdString(command->get_name());
    });
    return !word.startsWith(QLatin1Char('-')) && !isKnown;
}

int reportUnknownCommand(const CLI::App &app, const QString &word)
{
    QStringList names;
    for (const CLI::App *command : app.get_subcommands(nullptr))
        names << QString::fromStdString(command->get_name());
    const QStringList near = nearNames(word, names);
    printMessage(QStringLiteral("there is no command %1; %2")
                     .arg(quoted(word), near.isEmpty()
                                            ? QStringLiteral("orvida-catalog --help lists them")
                                            : QStringLiteral("did you mean %1?").arg(near.first())));
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
    const QString word = QString::fromLocal8Bit(argc > 1 ? argv[1] : "-");
    if (namesNoCommand(app, word))
        return reportUnknownCommand(app, word);
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
