// The command-line tool orvida-catalog: lists its commands.
#include "tools/CommandLine.h"
#include "tools/ExitStatus.h"
#include "tools/ProcessSetup.h"

#include "tools/commands/CheckCommand.h"
#include "tools/commands/DiffCommand.h"
#include "tools/commands/ExplainCommand.h"
#include "tools/commands/ExportCommand.h"
#include "tools/commands/FormCommand.h"
#include "tools/commands/FormatCommand.h"
#include "tools/commands/HtmlCommand.h"
#include "tools/commands/ImportCommand.h"
#include "tools/commands/JsonCommand.h"
#include "tools/commands/NewCommand.h"
#include "tools/commands/ShowCommand.h"

#include <cstdio>
#include <new>

namespace {

using namespace Orvida::Tools;

std::vector<std::unique_ptr<Command>> makeCommands()
{
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<ShowCommand>());
    commands.push_back(std::make_unique<JsonCommand>());
    commands.push_back(std::make_unique<DiffCommand>());
    commands.push_back(std::make_unique<HtmlCommand>());
    commands.push_back(std::make_unique<FormCommand>(TextForm::Scrambled));
    commands.push_back(std::make_unique<FormCommand>(TextForm::Readable));
    commands.push_back(std::make_unique<FormatCommand>());
    commands.push_back(std::make_unique<ExportCommand>());
    commands.push_back(std::make_unique<ImportCommand>());
    commands.push_back(std::make_unique<CheckCommand>());
    commands.push_back(std::make_unique<ExplainCommand>());
    commands.push_back(std::make_unique<NewCommand>());
    return commands;
}

} // namespace

int main(int argc, char **argv)
{
    try {
        setUpProcess();
        return runCommandLine(argc, argv, makeCommands());
    } catch (const std::bad_alloc &) {
        std::fputs("orvida-catalog: error: not enough memory for this catalog\n", stderr);
        return NotReadable;
    }
}
