// orvida-catalog check: what is wrong with catalog files.
#pragma once

#include "tools/CheckReport.h"
#include "tools/CheckedFile.h"
#include "tools/CommandOutput.h"
#include "tools/OutputStyle.h"
#include "tools/commands/Command.h"

#include <QString>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Orvida::Tools {

class CheckCommand : public Command
{
public:
    CheckCommand() : Command("check", "Tell what is wrong with catalog files, where, and how to fix it.") {}
    int run() override;

private:
    /// How findings are printed.
    enum class Format { Text, Json, Sarif };

    void addOptions(CLI::App &command) override;
    void addFileOptions(CLI::App &command);
    void addFindingOptions(CLI::App &command);
    void addRuleOptions(CLI::App &command);

    int printRuleTable() const;
    int explainRule() const;
    bool takeLevels();
    bool takeLevel(const QString &setting);
    int checkFiles();
    std::unique_ptr<CheckReport> makeReport(CommandOutput &output) const;

    std::vector<std::string> m_fileNames;
    CheckedFile::Options m_options;
    Format m_format = Format::Text;
    std::optional<CatalogSeverity> m_least;
    std::vector<std::string> m_levels; ///< as given: RULE=LEVEL
    ColorChoice m_color = ColorChoice::Auto;
    bool m_listsRules = false;
    std::optional<QString> m_explainedRule;
};

} // namespace Orvida::Tools
