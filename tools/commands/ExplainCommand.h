// orvida-catalog explain: what an element of a catalog file is for.
#pragma once

#include "tools/commands/Command.h"

#include <QString>

namespace Orvida::Tools {

class ExplainCommand : public Command
{
public:
    ExplainCommand() : Command("explain", "Tell what an element of a catalog file is for.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;

    QString m_element;
};

} // namespace Orvida::Tools
