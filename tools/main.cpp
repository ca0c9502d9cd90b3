// The command-line tool orvida-catalog: takes the call apart and hands it to a subcommand.
#include "tools/ExitStatus.h"
#include "tools/ShowCommand.h"

#include <CLI/CLI.hpp>
#include <QTextCodec>

#include <iostream>
#include <map>
#include <string>

namespace {

using namespace Orvida::Tools;

// Names of files are UTF-8 whatever the locale is; Qt would go by the locale and lose letters in "C".
void useUtf8()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
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

} // namespace

int main(int argc, char **argv)
{
    useUtf8();
    CLI::App app("Looks into the coding catalogs of inspection standards.", "orvida-catalog");
    app.set_version_flag("--version", "orvida-catalog " ORVIDA_VERSION);
    app.require_subcommand(1);
    app.footer("Exit status: 0 done, 1 the answer is no, 2 a file could not be read, 3 wrong usage.");

    ShowOptions showOptions;
    std::string fileName;
    CLI::App *showCommand = app.add_subcommand("show", "Print the tree of codes of a catalog file.");
    showCommand->add_option("FILE", fileName, "Catalog file; - is standard input")->required();
    addColorOption(*showCommand, showOptions.color);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return endWithoutRunning(app, error);
    }
    showOptions.fileName = QString::fromLocal8Bit(fileName.c_str());
    return show(showOptions);
}
