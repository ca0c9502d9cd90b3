// orvida-catalog import: puts the translations of a table into a catalog.
#pragma once

#include "tools/commands/Command.h"
#include "tools/translation/CsvText.h"
#include "tools/translation/TranslatableTexts.h"

#include <QString>

#include <optional>

namespace Orvida::Tools {

class ImportCommand : public Command
{
public:
    ImportCommand() : Command("import", "Put the translations of a table into a catalog file.") {}
    int run() override;

private:
    void addOptions(CLI::App &command) override;
    [[nodiscard]] bool readTable(QVector<CsvText::Row> &rows) const;

    QString m_fileName;
    QString m_tableName;
    std::optional<QString> m_output;
    bool m_isInPlace = false;
};

} // namespace Orvida::Tools
