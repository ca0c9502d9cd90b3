// orvida-catalog show: prints a catalog for people.
#pragma once

#include "tools/CatalogFile.h"
#include "tools/CommandOutput.h"
#include "tools/OutputStyle.h"
#include "tools/commands/Command.h"

#include <QString>

#include <optional>

namespace Orvida::Tools {

class ShowCommand : public Command
{
public:
    ShowCommand() : Command("show", "Print the tree of codes of a catalog file.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;
    void printTree(CommandOutput &output, CatalogFile &file) const;
    int printCode(CommandOutput &output, CatalogFile &file) const;

    CatalogFile::Options m_file;
    std::optional<QString> m_code;
    std::optional<QString> m_profile;
    bool m_showsFields = false;
    bool m_showsSources = false;
    ColorChoice m_color = ColorChoice::Auto;
};

} // namespace Orvida::Tools
