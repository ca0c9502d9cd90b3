// orvida-catalog format: lays a catalog file out.
#pragma once

#include "tools/commands/Command.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Orvida::Tools {

class FormatCommand : public Command
{
public:
    FormatCommand() : Command("format", "Lay a catalog file out; no text in it changes.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;

    QString m_fileName;
    std::optional<QString> m_output;
    bool m_isInPlace = false;
    bool m_isCheck = false;
};

} // namespace Orvida::Tools
