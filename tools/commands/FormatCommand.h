// orvida-catalog format: lays a catalog file out.
#pragma once

#include "tools/RewriteOptions.h"
#include "tools/commands/Command.h"

#include <QByteArray>
#include <QString>

namespace Orvida::Tools {

class FormatCommand : public Command
{
public:
    FormatCommand() : Command("format", "Lay a catalog file out; no text in it changes.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;

    RewriteOptions m_options;
    bool m_isCheck = false;
};

} // namespace Orvida::Tools
