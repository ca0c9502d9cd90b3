// The command-line tool orvida-catalog: lists its commands.
#include "tools/CommandLine.h"
#include "tools/ExitStatus.h"
#include "tools/commands/ExplainCommand.h"
#include "tools/commands/ExportCommand.h"
#include "tools/commands/FormCommand.h"
#include "tools/commands/FormatCommand.h"
#include "tools/commands/HtmlCommand.h"
#include "tools/commands/ImportCommand.h"
#include "tools/commands/JsonCommand.h"
#include "tools/commands/NewCommand.h"
#include "tools/commands/ShowCommand.h"

#include <QTextCodec>

#include <cstdio>
#include <new>

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

std::vector<std::unique_ptr<Command>> makeCommands()
{
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<ShowCommand>());
    commands.push_back(std::make_unique<JsonCommand>());
    commands.push_back(std::make_unique<HtmlCommand>());
    commands.push_back(std::make_unique<FormCommand>(TextForm::Scrambled));
    commands.push_back(std::make_unique<FormCommand>(TextForm::Readable));
    commands.push_back(std::make_unique<FormatCommand>());
    commands.push_back(std::make_unique<ExportCommand>());
    commands.push_back(std::make_unique<ImportCommand>());
    commands.push_back(std::make_unique<ExplainCommand>());
    commands.push_back(std::make_unique<NewCommand>());
    return commands;
}

} // namespace

int main(int argc, char **argv)
{
    occupyClosedDescriptors();
    try {
        useUtf8();
        return runCommandLine(argc, argv, makeCommands());
    } catch (const std::bad_alloc &) {
        std::fputs("orvida-catalog: error: not enough memory for this catalog\n", stderr);
        return NotReadable;
    }
}
