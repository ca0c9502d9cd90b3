// Takes a call of the tool apart and runs the command that it is for.
#pragma once

#include "tools/commands/Command.h"

#include <memory>
#include <vector>

namespace Orvida::Tools {

/// Runs the one of `commands` that the call names, or answers what was asked of the tool itself, and gives
/// the exit status of the process.
int runCommandLine(int argc, char **argv, const std::vector<std::unique_ptr<Command>> &commands);

} // namespace Orvida::Tools
