// Parses the command line and runs the command that it names.
#pragma once

#include "tools/commands/Command.h"

#include <memory>
#include <vector>

namespace Orvida::Tools {

/// Runs the one of `commands` that the arguments name, or answers --help and --version. Returns the exit
/// status of the process.
int runCommandLine(int argc, char **argv, const std::vector<std::unique_ptr<Command>> &commands);

} // namespace Orvida::Tools
