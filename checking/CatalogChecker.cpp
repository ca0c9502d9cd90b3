#include "checking/CatalogChecker.h"

#include "checking/CatalogChecker_p.h"

#include "catalogs/reading/RecordReader_p.h"
#include "catalogs/reading/XmlInput_p.h"
#include "checking/findings/FindingReport_p.h"
#include "checking/reading/CatalogLocator_p.h"
#include "checking/reading/LocatedXml_p.h"
#include "checking/rules/Check_p.h"
#include "checking/rules/RuleTable_p.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace Orvida::Checking {

using Catalogs::CatalogReadFailure;

namespace {

using Level = CatalogChecker::Level;

Level levelOf(CatalogSeverity severity)
{
    return severity == CatalogSeverity::Error     ? Level::Error
           : severity == CatalogSeverity::Warning ? Level::Warning
                                                  : Level::Note;
}

CatalogRule publicRule(const RuleGroup &group, const RuleRow &row)
{
    CatalogRule rule;
    rule.id = QLatin1String(row.id);
    rule.group = QString::fromUtf8(group.title);
    rule.summary = QString::fromUtf8(row.summary);
    rule.explanation = QString::fromUtf8(row.explanation);
    rule.before = QString::fromUtf8(row.before);
    rule.after = QString::fromUtf8(row.after);
    rule.severity = row.severity;
    rule.isOnByDefault = row.use != RuleUse::Off;
    rule.refuses = row.use == RuleUse::Refuses;
    return rule;
}

QVector<CatalogRule> publicRules()
{
    QVector<CatalogRule> rules;
    for (const RuleGroup &group : ruleGroups()) {
        for (int index = 0; index < group.count; ++index)
            rules.append(publicRule(group, group.rows[index]));
    }
    return rules;
}

} // namespace

FindingReport::Settings defaultSettings()
{
    FindingReport::Settings settings;
    for (std::size_t rule = 0; rule < settings.levels.size(); ++rule) {
        const RuleRow &row = ruleRow(Rule(rule));
        settings.levels[rule] = row.use == RuleUse::Off ? Level::Off : levelOf(row.severity);
    }
    return settings;
}

namespace {

// More than half of what should be scrambled is not.
bool isInReadableForm(const LocatedCatalog &catalog)
{
    return catalog.clearCount * 2 > catalog.scrambledCount;
}

ClearTexts clearTextsOf(const LocatedCatalog &catalog, const CatalogReadFailure &failure)
{
    const LocatedField &first = catalog.fields[std::size_t(catalog.firstClearField)];
    return {catalog.clearCount, catalog.scrambledCount, first.start, first.end, failure};
}

} // namespace

void askRules(Check &check)
{
    const bool hasRoot = check.catalog.hasRoot;
    std::vector<void (*)(Check &)> asked;
    for (const RuleGroup &group : ruleGroups()) {
        if (group.needsWholeFile && !check.catalog.isWhole)
            continue;
        for (int index = 0; index < group.count; ++index) {
            const RuleRow &row = group.rows[index];
            const bool isSilenced = !hasRoot && row.use != RuleUse::Refuses && row.rule != Rule::UnknownRoot;
            if (isSilenced || std::find(asked.begin(), asked.end(), row.find) != asked.end())
                continue;
            asked.push_back(row.find);
            row.find(check);
        }
    }
}

struct Q_DECL_HIDDEN CatalogChecker::Private
{
    Reading read(const QString &fileName, bool isReadable) const;
    bool locate(LocatedXml &xml, const QFile &file, Reading &reading) const;
    void judge(const QString &fileName, const Reading &reading, const std::optional<ClearTexts> &clearTexts);

    Form form = Form::Scrambled;
    FindingReport::Settings settings = defaultSettings();
    std::function<void(qint64, qint64)> progress;
    CatalogReadFailure failure;
    QVector<CatalogFinding> findings;
    std::array<int, 3> countOfSeverity{};
    FindingReport::AllTotals totals{};
};

const QVector<CatalogRule> &CatalogChecker::rules()
{
    static const QVector<CatalogRule> rules = publicRules();
    return rules;
}

const CatalogRule *CatalogChecker::rule(const QString &id)
{
    const auto found = std::find_if(rules().begin(), rules().end(),
                                    [&id](const CatalogRule &rule) { return rule.id == id; });
    return found == rules().end() ? nullptr : &*found;
}

CatalogChecker::CatalogChecker() : m_private(std::make_unique<Private>()) {}

CatalogChecker::~CatalogChecker() = default;

void CatalogChecker::setForm(Form form)
{
    m_private->form = form;
}

bool CatalogChecker::setLevel(const QString &rule, Level level)
{
    const RuleRow *row = ruleRow(rule);
    if (!row || row->use == RuleUse::Refuses)
        return false;
    m_private->settings.levels[std::size_t(row->rule)] = level;
    m_private->settings.isGiven[std::size_t(row->rule)] = true;
    return true;
}

void CatalogChecker::setFindingsPerRule(int count)
{
    m_private->settings.findingsPerRule = count;
}

void CatalogChecker::setProgress(std::function<void(qint64 bytesRead, qint64 size)> progress)
{
    m_private->progress = std::move(progress);
}

bool CatalogChecker::check(const QString &fileName)
{
    const bool isReadable = m_private->form == Form::Readable;
    auto reading = std::make_unique<Reading>(m_private->read(fileName, isReadable));
    m_private->failure = failureOf(*reading);
    std::optional<ClearTexts> clearTexts;
    if (isInReadableForm(reading->catalog)) {
        // Everything else is judged by what the author sees: as scrambled texts the values are nonsense, and
        // each of them would be a finding.
        clearTexts = clearTextsOf(reading->catalog, m_private->failure);
        reading.reset();
        reading = std::make_unique<Reading>(m_private->read(fileName, true));
    }
    m_private->judge(fileName, *reading, clearTexts);
    return m_private->failure.reason == CatalogReadFailure::None;
}

const QVector<CatalogFinding> &CatalogChecker::findings() const
{
    return m_private->findings;
}

int CatalogChecker::count(CatalogSeverity severity) const
{
    return m_private->countOfSeverity[std::size_t(severity)];
}

CatalogChecker::Totals CatalogChecker::totals(const QString &rule) const
{
    const RuleRow *row = ruleRow(rule);
    return row ? m_private->totals[std::size_t(row->rule)] : Totals();
}

const CatalogReadFailure &CatalogChecker::failure() const
{
    return m_private->failure;
}

Reading readCatalogFile(const QString &fileName, bool isReadable)
{
    return CatalogChecker::Private().read(fileName, isReadable);
}

const CatalogReadFailure &failureOf(const Reading &reading)
{
    return reading.firstRefusal.reason == CatalogReadFailure::None ? reading.fault : reading.firstRefusal;
}

Reading CatalogChecker::Private::read(const QString &fileName, bool isReadable) const
{
    Catalogs::XmlInput input;
    const bool isOpen = input.open(fileName);
    // Nearly every file is plain; one that is not is read again.
    if (isOpen && !input.file.isSequential()) {
        Reading reading;
        reading.catalog.isReadable = isReadable;
        PlainXml xml(input.file);
        if (locate(xml, input.file, reading))
            return reading;
        input.file.unsetError();
        input.file.seek(0);
    }
    Reading reading;
    reading.catalog.isReadable = isReadable;
    AnyXml xml(input.reader);
    if (!isOpen)
        reading.fault = input.failureToOpen();
    else if (!locate(xml, input.file, reading))
        reading.fault = input.failureToRead();
    return reading;
}

// The loop of a load reads, with nothing to store. False when it does not come to the end of the document.
bool CatalogChecker::Private::locate(LocatedXml &xml, const QFile &file, Reading &reading) const
{
    Catalogs::CatalogXMLParser noRecords;
    QHash<QString, QSharedPointer<Catalogs::CatalogItem>> noItems;
    QVector<QString> noKeys;
    const auto texts = std::make_unique<Catalogs::TextPool>();
    CatalogReadFailure refusal;
    CatalogLocator locator(xml, refusal, *texts, reading.catalog);
    if (progress)
        locator.setProgress([&] { progress(file.pos(), file.size()); });
    Catalogs::RecordReader reader(xml, {noRecords, noItems, noKeys, *texts}, refusal, locator);
    const bool isRead = reader.readDocument() && xml.tokenType() == QXmlStreamReader::EndDocument;
    reading.firstRefusal = locator.finish();
    return isRead;
}

void CatalogChecker::Private::judge(const QString &fileName, const Reading &reading,
                                    const std::optional<ClearTexts> &clearTexts)
{
    const CatalogLinks links(reading.catalog);
    FindingReport report(reading.catalog, settings);
    Check check{fileName, reading.fault, clearTexts, reading.catalog, links, report};
    askRules(check);
    report.finish();
    findings = std::move(report.findings);
    countOfSeverity = report.countOfSeverity;
    totals = report.totals;
}

} // namespace Orvida::Checking
