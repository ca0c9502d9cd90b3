// orvida-catalog html: a catalog as a page for people without this tool.
#pragma once

#include "tools/CatalogFile.h"
#include "tools/commands/Command.h"

#include <QString>

#include <optional>

namespace Orvida::Tools {

class HtmlCommand : public Command
{
public:
    HtmlCommand() : Command("html", "Make one page of HTML of a catalog file, to look at in a browser.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;

    CatalogFile::Options m_file;
    std::optional<QString> m_output;
    bool m_isUnchecked = false;
};

} // namespace Orvida::Tools
