// What options of several commands have in common.
#pragma once

#include "tools/CatalogFile.h"
#include "tools/OutputStyle.h"

#include <QString>

#include <optional>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace Orvida::Tools {

// The places in which options store their values must live until the command line is parsed.

/// An option that takes a text; an empty text is one too.
CLI::Option *addTextOption(CLI::App &command, const char *name, std::optional<QString> &text,
                           const char *help);

/// What a command must be given, and the help on it.
void addText(CLI::App &command, const char *name, QString &text, const char *help);

/// The file that a command reads.
void addInputFile(CLI::App &command, QString &fileName);

/// The catalog file that a command loads, and --readable.
void addFile(CLI::App &command, CatalogFile::Options &options);

/// --color
void addColorOption(CLI::App &command, ColorChoice &color);

} // namespace Orvida::Tools
