// The command-line tool orvida-catalog: takes the call apart and hands it to a subcommand.
#include "tools/ExitStatus.h"
#include "tools/JsonCommand.h"
#include "tools/ShowCommand.h"

#include <CLI/CLI.hpp>
#include <QString>
#include <QTextCodec>

#include <iostream>
#include <map>
#include <new>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace Orvida::Tools;

// Names of files are UTF-8 whatever the locale is; Qt would go by the locale and lose letters in "C".
void useUtf8()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

// A file that is opened takes the place of a closed descriptor, and what is meant for standard error would go
// into it. So each closed one is opened in the direction in which nothing uses it: its use still fails.
void occupyClosedDescriptors()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) < 0)
            open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

const std::map<std::string, ColorChoice> colorChoices = {
    {"auto", ColorChoice::Auto}, {"always", ColorChoice::Always}, {"never", ColorChoice::Never}};

std::string helpText(const CLI::App &app)
{
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app.help() : chosen.front()->help(app.get_name());
}

// Help and version come as "errors" that ended well.
int endWithoutRunning(const CLI::App &app, const CLI::ParseError &error)
{
    if (dynamic_cast<const CLI::CallForHelp *>(&error)) {
        std::cout << helpText(app);
        return Done;
    }
    if (error.get_exit_code() == 0)
        return app.exit(error);
    std::cerr << app.get_name() << ": " << error.what() << "\n\n" << helpText(app);
    return WrongUsage;
}

void addColorOption(CLI::App &command, ColorChoice &color)
{
    command
        .add_option_function<std::string>(
            "--color", [&color](const std::string &choice) { color = colorChoices.at(choice); },
            "When to write in colour; auto: on a terminal, unless NO_COLOR is set")
        ->check(CLI::IsMember(colorChoices))
        ->option_text("auto|always|never");
}

// An option that takes a text; notes that it was given, since an empty text is one too.
void addTextOption(CLI::App &command, const char *name, QString &text, bool &isGiven, const char *help)
{
    command
        .add_option_function<std::string>(
            name,
            [&text, &isGiven](const std::string &value) {
                text = QString::fromStdString(value);
                isGiven = true;
            },
            help)
        ->option_text("TEXT");
}

void addFile(CLI::App &command, QString &fileName)
{
    command
        .add_option_function<std::string>(
            "FILE", [&fileName](const std::string &value) { fileName = QString::fromStdString(value); },
            "Catalog file; - is standard input")
        ->option_text(" ")
        ->required();
}

CLI::App *addShow(CLI::App &app, ShowOptions &options)
{
    CLI::App *command = app.add_subcommand("show", "Print the tree of codes of a catalog file.");
    addFile(*command, options.fileName);
    addTextOption(*command, "--code", options.code, options.hasCode, "Print this code as a form instead");
    addTextOption(*command, "--profile", options.profile, options.hasProfile,
                  "Look at the profile with this key, not at the one that the catalog chooses");
    command->add_flag("--fields", options.showsFields, "Print the input fields under each code")
        ->excludes("--code");
    command->add_flag("--log", options.showsLog, "Print all log messages of the load on standard error");
    addColorOption(*command, options.color);
    return command;
}

CLI::App *addJson(CLI::App &app, JsonOptions &options)
{
    CLI::App *command = app.add_subcommand("json", "Print a whole catalog file as JSON.");
    addFile(*command, options.fileName);
    command->add_flag("--compact", options.isCompact, "All on one line, without white space");
    return command;
}

int run(int argc, char **argv)
{
    useUtf8();
    CLI::App app("Looks into the coding catalogs of inspection standards.", "orvida-catalog");
    app.set_version_flag("--version", "orvida-catalog " ORVIDA_VERSION);
    app.require_subcommand(1);
    app.footer("Exit status: 0 done, 1 the answer is no (an unknown code or profile), 2 a file could not be\n"
               "read or loaded, 3 wrong usage.");

    ShowOptions showOptions;
    JsonOptions jsonOptions;
    const CLI::App *showCommand = addShow(app, showOptions);
    addJson(app, jsonOptions);
    try {
        app.parse(argc, argv);
        return showCommand->parsed() ? show(showOptions) : json(jsonOptions);
    } catch (const CLI::ParseError &error) {
        return endWithoutRunning(app, error);
    }
}

} // namespace

int main(int argc, char **argv)
{
    occupyClosedDescriptors();
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc &) {
        std::cerr << "orvida-catalog: error: not enough memory for this catalog\n";
        return NotReadable;
    }
}
