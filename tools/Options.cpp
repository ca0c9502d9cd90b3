#include "tools/Options.h"

#include <CLI/CLI.hpp>

#include <map>
#include <string>

namespace Orvida::Tools {

namespace {

const std::map<std::string, ColorChoice> colorChoices = {
    {"auto", ColorChoice::Auto}, {"always", ColorChoice::Always}, {"never", ColorChoice::Never}};

} // namespace

CLI::Option *addTextOption(CLI::App &command, const char *name, std::optional<QString> &text,
                           const char *help)
{
    return command
        .add_option_function<std::string>(
            name, [&text](const std::string &value) { text = QString::fromStdString(value); }, help)
        ->option_text("TEXT");
}

void addText(CLI::App &command, const char *name, QString &text, const char *help)
{
    command
        .add_option_function<std::string>(
            name, [&text](const std::string &value) { text = QString::fromStdString(value); }, help)
        ->option_text(" ")
        ->required();
}

void addInputFile(CLI::App &command, QString &fileName)
{
    addText(command, "FILE", fileName, "Catalog file; - is standard input");
}

void addFile(CLI::App &command, CatalogFile::Options &options)
{
    addInputFile(command, options.fileName);
    command.add_flag("--readable", options.isReadable,
                     "The file is in the readable form: its captions and codes are in the clear");
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

} // namespace Orvida::Tools
