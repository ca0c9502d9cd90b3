// orvida-catalog diff: what has changed from one edition of a catalog to the next.
#pragma once

#include "checking/CatalogComparison.h"
#include "tools/CommandOutput.h"
#include "tools/InputFile.h"
#include "tools/OutputStyle.h"
#include "tools/commands/Command.h"

#include <QString>

#include <optional>

namespace Orvida::Tools {

class DiffCommand : public Command
{
public:
    DiffCommand() : Command("diff", "Tell what has changed between two editions of a catalog.") {}
    int run() override;

private:
    /// How changes are printed.
    enum class Format { Text, Json, Csv };

    void addOptions(CLI::App &command) override;
    void addFileOptions(CLI::App &command);
    int explainKind() const;
    QString usageError() const;
    int compareFiles() const;
    bool compare(Checking::CatalogComparison &comparison, const InputFile &oldFile,
                 const InputFile &newFile) const;
    TextForm formOf(Checking::CatalogComparison::Edition edition) const;
    bool knowsProfile(const Checking::CatalogComparison &comparison) const;
    int statusOf(const Checking::CatalogComparison &comparison) const;
    void printChanges(CommandOutput &output, const Checking::CatalogComparison &comparison) const;

    std::optional<QString> m_oldName;
    std::optional<QString> m_newName;
    bool m_areReadable = false;
    bool m_isOldReadable = false;
    bool m_isNewReadable = false;
    std::optional<QString> m_profile;
    Format m_format = Format::Text;
    /// The mildest class of changes that makes the answer a no.
    Checking::CatalogChangeClass m_leastFailing = Checking::CatalogChangeClass::Breaking;
    std::optional<QString> m_mapName;
    bool m_mapsWeak = false;
    bool m_listsAll = false;
    std::optional<QString> m_explainedKind;
    ColorChoice m_color = ColorChoice::Auto;
};

} // namespace Orvida::Tools
