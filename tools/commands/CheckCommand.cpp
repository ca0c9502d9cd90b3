#include "tools/commands/CheckCommand.h"

#include "tools/CheckJson.h"
#include "tools/CheckSarif.h"
#include "tools/CheckText.h"
#include "tools/ExitStatus.h"
#include "tools/Messages.h"
#include "tools/NearNames.h"
#include "tools/Options.h"
#include "tools/RuleText.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

#include <unistd.h>

namespace Orvida::Tools {

using Checking::CatalogChecker;
using Checking::CatalogRule;
using Level = CatalogChecker::Level;

namespace {

const std::map<std::string, CatalogSeverity> severities = {{"error", CatalogSeverity::Error},
                                                           {"warning", CatalogSeverity::Warning},
                                                           {"note", CatalogSeverity::Note}};

const std::map<std::string, Level> levels = {
    {"error", Level::Error}, {"warning", Level::Warning}, {"note", Level::Note}, {"off", Level::Off}};

constexpr const char *footer =
    "A comment between records turns rules off: <!-- check: off RULE, RULE --> for the next record,\n"
    "<!-- check: off RULE * --> for the whole file.\n\n"
    "Exit status: 0 no error, 1 an error in a file, which may be that it does not load, 2 a file could\n"
    "not be read or the report not be written, 3 wrong usage.";

// An option that takes one of the names in `choices`, which lives as long as the program.
template <typename Choice, typename Target>
CLI::Option *addChoice(CLI::App &command, const char *name, const std::map<std::string, Choice> &choices,
                       Target &target, const char *help)
{
    return command
        .add_option_function<std::string>(
            name, [&choices, &target](const std::string &choice) { target = choices.at(choice); }, help)
        ->check(CLI::IsMember(choices));
}

int reportUnknownRule(const QString &id)
{
    const QStringList near = nearNames(id, ruleIds());
    printMessage(
        QStringLiteral("there is no rule %1; %2")
            .arg(quoted(id), near.isEmpty()
                                 ? QStringLiteral("orvida-catalog check --rules lists them")
                                 : QStringLiteral("did you mean %1?").arg(near.join(QStringLiteral(", ")))));
    return WrongUsage;
}

int statusOf(const CheckedFile &file)
{
    if (!file.isRead())
        return NotReadable;
    return file.count(CatalogSeverity::Error) > 0 ? AnswerIsNo : Done;
}

} // namespace

void CheckCommand::addOptions(CLI::App &command)
{
    command.footer(footer);
    addFileOptions(command);
    addFindingOptions(command);
    addRuleOptions(command);
    addColorOption(command, m_color);
    command.parse_complete_callback([this] {
        if (m_fileNames.empty() && !m_listsRules && !m_explainedRule)
            throw CLI::RequiredError("FILE");
    });
}

void CheckCommand::addFileOptions(CLI::App &command)
{
    command.add_option("FILE", m_fileNames, "Catalog files; - is standard input")->option_text("...");
    command.add_flag("--readable", m_options.isReadable,
                     "The files are in the readable form: their captions and codes are in the clear");
}

void CheckCommand::addFindingOptions(CLI::App &command)
{
    static const std::map<std::string, Format> formats = {
        {"text", Format::Text}, {"json", Format::Json}, {"sarif", Format::Sarif}};
    addChoice(command, "--format", formats, m_format, "How to print findings; text if left out")
        ->option_text("text|json|sarif");
    addChoice(command, "--severity", severities, m_least,
              "Print findings from this severity on; if left out, warning as text, otherwise note")
        ->option_text("error|warning|note");
    command
        .add_option("--rule", m_levels,
                    "Take findings of RULE for error, warning or note, or turn it off; may be repeated")
        ->option_text("RULE=LEVEL")
        ->allow_extra_args(false);
    command.add_flag("--warnings-as-errors", m_options.areWarningsErrors, "Take all warnings for errors");
    command.add_flag("--all", m_options.listsAll, "Print all findings, and not at most 100 of each rule");
}

void CheckCommand::addRuleOptions(CLI::App &command)
{
    const auto rules = command.add_flag("--rules", m_listsRules, "Print all rules, and check nothing");
    addTextOption(command, "--explain", m_explainedRule,
                  "Print what this rule is for, with an example, and check nothing")
        ->option_text("RULE")
        ->excludes(rules);
}

int CheckCommand::run()
{
    if (m_listsRules)
        return printRuleTable();
    if (m_explainedRule)
        return explainRule();
    return takeLevels() ? checkFiles() : WrongUsage;
}

int CheckCommand::printRuleTable() const
{
    CommandOutput output;
    printRules(output.stream(), OutputStyle(m_color));
    return output.finish(Done);
}

int CheckCommand::explainRule() const
{
    const CatalogRule *rule = CatalogChecker::rule(*m_explainedRule);
    if (!rule)
        return reportUnknownRule(*m_explainedRule);
    CommandOutput output;
    printRule(output.stream(), OutputStyle(m_color), *rule);
    return output.finish(Done);
}

bool CheckCommand::takeLevels()
{
    return std::all_of(m_levels.begin(), m_levels.end(), [this](const std::string &setting) {
        return takeLevel(QString::fromStdString(setting));
    });
}

bool CheckCommand::takeLevel(const QString &setting)
{
    const QString id = setting.section(QLatin1Char('='), 0, 0);
    const auto level = levels.find(setting.section(QLatin1Char('='), 1).toStdString());
    const CatalogRule *rule = CatalogChecker::rule(id);
    if (!rule) {
        reportUnknownRule(id);
        return false;
    }
    if (level == levels.end()) {
        printMessage(QStringLiteral("--rule %1 is no RULE=LEVEL; a level is error, warning, note or off")
                         .arg(quoted(setting)));
        return false;
    }
    if (rule->refuses) {
        printMessage(
            QStringLiteral("rule %1 is always an error: a file that breaks it does not load").arg(id));
        return false;
    }
    m_options.levels.insert(id, level->second);
    return true;
}

int CheckCommand::checkFiles()
{
    CommandOutput output;
    m_options.least =
        m_least.value_or(m_format == Format::Text ? CatalogSeverity::Warning : CatalogSeverity::Note);
    const std::unique_ptr<CheckReport> report = makeReport(output);
    int status = Done;
    for (const std::string &fileName : m_fileNames) {
        const CheckedFile file(QString::fromStdString(fileName), m_options);
        status = std::max(status, statusOf(file));
        report->add(file);
    }
    report->finish();
    return output.finish(status);
}

std::unique_ptr<CheckReport> CheckCommand::makeReport(CommandOutput &output) const
{
    if (m_format == Format::Json)
        return std::make_unique<CheckJson>(output);
    if (m_format == Format::Sarif)
        return std::make_unique<CheckSarif>(output);
    const bool showsLines = m_color == ColorChoice::Always || isatty(STDOUT_FILENO);
    return std::make_unique<CheckText>(output.stream(), OutputStyle(m_color), showsLines);
}

} // namespace Orvida::Tools
