#include "tools/commands/DiffCommand.h"

#include "tools/ChangeJson.h"
#include "tools/ChangeTables.h"
#include "tools/ChangeText.h"
#include "tools/ExitStatus.h"
#include "tools/Messages.h"
#include "tools/NearNames.h"
#include "tools/Options.h"
#include "tools/OutputFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <string>

namespace Orvida::Tools {

using Checking::CatalogChange;
using Checking::CatalogChangeClass;
using Checking::CatalogChangeKind;
using Checking::CatalogChecker;
using Checking::CatalogComparison;

namespace {

constexpr const char *footer = "Exit status: 0 no change of the class of --fail-on or a graver one, 1 there "
                               "is one, 2 a file could not be\n"
                               "loaded, or the report or the map not be written, 3 wrong usage.";

// An option that takes one of the names in `choices`, which lives as long as the program.
template <typename Choice>
CLI::Option *addChoice(CLI::App &command, const char *name, const std::map<std::string, Choice> &choices,
                       Choice &target, const char *help)
{
    return command
        .add_option_function<std::string>(
            name, [&choices, &target](const std::string &choice) { target = choices.at(choice); }, help)
        ->check(CLI::IsMember(choices));
}

int reportUnknownKind(const QString &id)
{
    QStringList ids;
    for (const CatalogChangeKind &kind : CatalogComparison::kinds())
        ids << kind.id;
    const QStringList near = nearNames(id, ids);
    const QString others = near.isEmpty()
                               ? QStringLiteral("docs/comparing.md lists them")
                               : QStringLiteral("did you mean %1?").arg(near.join(QStringLiteral(", ")));
    printMessage(QStringLiteral("there is no kind of change %1; %2").arg(quoted(id), others));
    return WrongUsage;
}

} // namespace

void DiffCommand::addOptions(CLI::App &command)
{
    static const std::map<std::string, Format> formats = {
        {"text", Format::Text}, {"json", Format::Json}, {"csv", Format::Csv}};
    static const std::map<std::string, CatalogChangeClass> classes = {
        {"breaking", CatalogChangeClass::Breaking},
        {"review", CatalogChangeClass::Review},
        {"any", CatalogChangeClass::Wording}};
    command.footer(footer);
    addFileOptions(command);
    addTextOption(command, "--profile", m_profile, "Leave out what concerns other profiles only")
        ->option_text("KEY");
    addChoice(command, "--format", formats, m_format, "How to print changes; text if left out")
        ->option_text("text|json|csv");
    addChoice(command, "--fail-on", classes, m_leastFailing,
              "From which class of changes on the exit status is 1; breaking if left out")
        ->option_text("breaking|review|any");
    const auto map =
        addTextOption(command, "--map", m_mapName,
                      "Write what was renamed into this CSV file, for hosts that change their records")
            ->option_text("FILE");
    command.add_flag("--map-weak", m_mapsWeak, "Write also what was perhaps renamed into it")->needs(map);
    command.add_flag("--all", m_listsAll, "Print also changes that neither data nor hosts notice");
    addTextOption(command, "--explain", m_explainedKind,
                  "Print what this kind of change means, and compare nothing")
        ->option_text("ID");
    addColorOption(command, m_color);
    command.parse_complete_callback([this] {
        if (!m_explainedKind && !m_newName)
            throw CLI::RequiredError(m_oldName ? "NEW" : "OLD");
    });
}

void DiffCommand::addFileOptions(CLI::App &command)
{
    addTextOption(command, "OLD", m_oldName, "Catalog file; - is standard input")->option_text(" ");
    addTextOption(command, "NEW", m_newName, "Catalog file; - is standard input")->option_text(" ");
    command.add_flag("--readable", m_areReadable,
                     "Both files are in the readable form: their captions and codes are in the clear");
    command.add_flag("--readable-old", m_isOldReadable, "OLD is in the readable form");
    command.add_flag("--readable-new", m_isNewReadable, "NEW is in the readable form");
}

int DiffCommand::run()
{
    if (m_explainedKind)
        return explainKind();
    const QString error = usageError();
    if (error.isEmpty())
        return compareFiles();
    printMessage(error);
    return WrongUsage;
}

QString DiffCommand::usageError() const
{
    const QString stream = QStringLiteral("-");
    if (m_oldName == stream && m_newName == stream)
        return QStringLiteral("only one of the two files can be standard input");
    if (m_mapName == stream)
        return QStringLiteral("the map needs a file of its own: standard output has the changes");
    const OutputFile map(m_mapName.value_or(QString()));
    if (m_mapName && (map.isSameAs(*m_oldName) || map.isSameAs(*m_newName)))
        return QStringLiteral("%1 is one of the catalogs; give the map another name").arg(*m_mapName);
    return QString();
}

int DiffCommand::explainKind() const
{
    const CatalogChangeKind *kind = CatalogComparison::kind(*m_explainedKind);
    if (!kind)
        return reportUnknownKind(*m_explainedKind);
    CommandOutput output;
    printKind(output.stream(), OutputStyle(m_color), *kind);
    return output.finish(Done);
}

int DiffCommand::compareFiles() const
{
    InputFile oldFile(*m_oldName);
    InputFile newFile(*m_newName);
    bool areRead = true;
    for (InputFile *file : {&oldFile, &newFile}) {
        if (file->read())
            continue;
        printFailure(file->name(), file->failure());
        areRead = false;
    }
    CatalogComparison comparison;
    if (!areRead || !compare(comparison, oldFile, newFile))
        return NotReadable;
    if (!knowsProfile(comparison))
        return AnswerIsNo;
    int status = statusOf(comparison);
    if (m_mapName)
        status = OutputFile(*m_mapName).write(renameTable(comparison.renames(), m_mapsWeak), status);
    CommandOutput output;
    printChanges(output, comparison);
    return output.finish(status);
}

// Says of each file why it does not load.
bool DiffCommand::compare(CatalogComparison &comparison, const InputFile &oldFile,
                          const InputFile &newFile) const
{
    using Catalogs::CatalogReadFailure;
    for (const auto edition : {CatalogComparison::Old, CatalogComparison::New})
        comparison.setForm(edition, formOf(edition) == TextForm::Readable ? CatalogChecker::Form::Readable
                                                                          : CatalogChecker::Form::Scrambled);
    comparison.setProfile(m_profile.value_or(QString()));
    const bool areLoaded = comparison.compare(oldFile.path(), newFile.path());
    for (const auto edition : {CatalogComparison::Old, CatalogComparison::New}) {
        const InputFile &file = edition == CatalogComparison::Old ? oldFile : newFile;
        const CatalogReadFailure &failure = comparison.failure(edition);
        const QString otherForm = file.otherFormText(formOf(edition));
        FileFailure told = failureOf(failure, otherForm);
        if (failure.reason == CatalogReadFailure::NotWellFormed)
            told = explained(told, file.path());
        if (failure.reason != CatalogReadFailure::None)
            printFailure(file.name(), told);
        else if (!otherForm.isEmpty())
            printWarning(file.name(), {}, otherForm);
    }
    return areLoaded;
}

TextForm DiffCommand::formOf(CatalogComparison::Edition edition) const
{
    const bool isReadable =
        m_areReadable || (edition == CatalogComparison::Old ? m_isOldReadable : m_isNewReadable);
    return isReadable ? TextForm::Readable : TextForm::Scrambled;
}

bool DiffCommand::knowsProfile(const CatalogComparison &comparison) const
{
    QStringList profiles =
        comparison.profiles(CatalogComparison::New) + comparison.profiles(CatalogComparison::Old);
    profiles.removeDuplicates();
    if (!m_profile || profiles.contains(*m_profile))
        return true;
    reportUnknown(QStringLiteral("profile %1 in these catalogs"), *m_profile, profiles);
    return false;
}

int DiffCommand::statusOf(const CatalogComparison &comparison) const
{
    const auto &changes = comparison.changes();
    const bool isFailing = std::any_of(changes.begin(), changes.end(), [this](const CatalogChange &change) {
        return change.changeClass <= m_leastFailing;
    });
    return isFailing ? AnswerIsNo : Done;
}

void DiffCommand::printChanges(CommandOutput &output, const CatalogComparison &comparison) const
{
    switch (m_format) {
    case Format::Text: ChangeText(output.stream(), OutputStyle(m_color), comparison).print(m_listsAll); break;
    case Format::Json: printChangeJson(output, comparison, *m_oldName, *m_newName, m_listsAll); break;
    case Format::Csv: printChangeTable(output, comparison, m_listsAll); break;
    }
}

} // namespace Orvida::Tools
