// orvida-catalog new: a catalog, or a code, to start from.
#pragma once

#include "tools/commands/Command.h"

#include <QString>

#include <optional>

namespace Orvida::Tools {

class NewCommand : public Command
{
public:
    NewCommand() : Command("new", "Print a readable catalog, or a code, to start from.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;
    int printCatalog() const;

    std::optional<QString> m_key;
    std::optional<QString> m_language;
    std::optional<QString> m_profiles;
    std::optional<QString> m_class;
    std::optional<QString> m_code;
};

} // namespace Orvida::Tools
