// orvida-catalog export: the texts of a catalog as a table for translators.
#pragma once

#include "tools/commands/Command.h"
#include "tools/translation/TranslatableTexts.h"

#include <QString>

#include <optional>

namespace Orvida::Tools {

class ExportCommand : public Command
{
public:
    ExportCommand() : Command("export", "Write the texts of a catalog file into a table for translators.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;

    QString m_fileName;
    QString m_output = QStringLiteral("-");
    TranslatableTexts::Choice m_choice = TranslatableTexts::Captions;
    bool m_isForExcel = false;
};

} // namespace Orvida::Tools
