// orvida-catalog json: prints a catalog for machines.
#pragma once

#include "tools/CatalogFile.h"
#include "tools/commands/Command.h"

namespace Orvida::Tools {

class JsonCommand : public Command
{
public:
    JsonCommand() : Command("json", "Print a whole catalog file as JSON.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;

    CatalogFile::Options m_file;
    bool m_isCompact = false;
};

} // namespace Orvida::Tools
