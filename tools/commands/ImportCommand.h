// orvida-catalog import: puts the translations of a table into a catalog.
#pragma once

#include "tools/RewriteOptions.h"
#include "tools/commands/Command.h"
#include "tools/translation/CsvText.h"
#include "tools/translation/TranslatableTexts.h"

#include <QString>

namespace Orvida::Tools {

class ImportCommand : public Command
{
public:
    ImportCommand() : Command("import", "Put the translations of a table into a catalog file.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;
    [[nodiscard]] bool readTable(QVector<CsvText::Row> &rows) const;

    RewriteOptions m_options;
    QString m_tableName;
};

} // namespace Orvida::Tools
