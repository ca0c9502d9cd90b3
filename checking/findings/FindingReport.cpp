#include "checking/findings/FindingReport_p.h"

#include "checking/findings/NearName_p.h"
#include "checking/findings/Wording_p.h"

#include <algorithm>
#include <limits>

namespace Orvida::Checking {

using Level = CatalogChecker::Level;

namespace {

// Of a finding that is there, but not listed.
constexpr int notListed = -1;

CatalogSeverity severityAt(Level level)
{
    return level == Level::Error     ? CatalogSeverity::Error
           : level == Level::Warning ? CatalogSeverity::Warning
                                     : CatalogSeverity::Note;
}

QString kindOf(const LocatedCatalog &catalog, int record)
{
    const LocatedRecord &located = catalog.record(record);
    if (located.kind == Section::Unknown)
        return catalog.texts.text(located.name).toString();
    return Catalogs::CatalogFormat::record(int(located.kind)).name;
}

bool isBefore(const CatalogFinding &a, const CatalogFinding &b)
{
    if (a.line != b.line)
        return a.line < b.line;
    return a.column != b.column ? a.column < b.column : a.rule < b.rule;
}

} // namespace

Place placeAt(Position at, int record, const QString &field)
{
    return {at, at, record, field};
}

Place placeOf(const LocatedCatalog &catalog, int record)
{
    return placeAt(catalog.record(record).start, record);
}

Place placeOf(const LocatedCatalog &catalog, int record, const LocatedField &field)
{
    return {field.start, field.end, record, catalog.format(record, field).name};
}

Place placeOf(const LocatedCatalog &catalog, int record, int token)
{
    const LocatedField *field = catalog.fieldOf(record, token);
    if (field)
        return placeOf(catalog, record, *field);
    return placeAt(catalog.record(record).start, record, formatOf(catalog.record(record).kind, token).name);
}

FindingReport::FindingReport(const LocatedCatalog &catalog, const Settings &settings)
    : m_catalog(catalog), m_settings(settings), m_isUseful(catalog.directives.size())
{
    m_suppressedInFile.fill(notListed);
    findSuppressions();
}

CatalogFinding *FindingReport::add(const Fault &fault)
{
    CatalogChecker::Totals &total = totals[std::size_t(fault.rule)];
    total.occurrences += fault.count;
    total.affected += fault.affected;
    if (!isOn(fault.rule) || isSuppressed(fault.rule, fault.place.start))
        return nullptr;
    const Subject subject{fault.rule, fault.subject};
    const auto earlier = fault.subject < 0 ? m_subjects.end() : m_subjects.find(subject);
    const bool isNew = earlier == m_subjects.end();
    if (!isNew)
        merge(fault, *earlier);
    const int index = isNew ? addNew(fault) : earlier->index;
    if (isNew && fault.subject >= 0)
        m_subjects.insert(subject, {index, severityOf(fault)});
    if (index == notListed)
        return nullptr;
    for (const int record : fault.losses)
        m_losses.insert(record, index);
    return isNew ? &findings[index] : nullptr;
}

// The worse severity holds for all.
void FindingReport::merge(const Fault &fault, Known &known)
{
    const CatalogSeverity severity = std::min(known.severity, severityOf(fault));
    --countOfSeverity[std::size_t(known.severity)];
    ++countOfSeverity[std::size_t(severity)];
    known.severity = severity;
    if (known.index == notListed)
        return;
    CatalogFinding &finding = findings[known.index];
    finding.severity = severity;
    finding.count += fault.count;
    finding.affected += fault.affected;
    relate(finding, fault.place, QStringLiteral("the same"));
}

void FindingReport::addConsequence(const Fault &fault, int lostRecord)
{
    CatalogChecker::Totals &total = totals[std::size_t(fault.rule)];
    total.occurrences += fault.count;
    total.affected += fault.affected;
    const LocatedRecord &lost = m_catalog.record(lostRecord);
    Consequences &known = m_consequences[lost.state == LocatedRecord::Wrapped ? lost.outer : lostRecord];
    known.affected += fault.count + fault.affected;
    const Position at = fault.place.start;
    if (known.related.size() < mostRelated)
        known.related.append({at.line, at.column, fault.place.field + QStringLiteral(" refers to it")});
}

void FindingReport::reportConsequences()
{
    for (auto known = m_consequences.cbegin(); known != m_consequences.cend(); ++known) {
        const int index = m_losses.value(known.key(), notListed);
        if (index == notListed)
            continue;
        findings[index].affected += known->affected;
        findings[index].related += known->related;
        findings[index].related.resize(std::min(findings[index].related.size(), mostRelated));
    }
}

void FindingReport::relate(CatalogFinding &finding, const Place &place, const QString &message)
{
    const qint64 line = place.start.line;
    const qint64 column = place.start.column;
    const bool isKnown =
        (finding.line == line && finding.column == column)
        || std::any_of(finding.related.cbegin(), finding.related.cend(), [=](const CatalogRelated &related) {
               return related.line == line && related.column == column;
           });
    if (!isKnown && finding.related.size() < mostRelated)
        finding.related.append({line, column, message});
}

void FindingReport::finish()
{
    reportConsequences();
    if (m_catalog.hasRoot)
        reportDirectives();
    std::stable_sort(findings.begin(), findings.end(), isBefore);
}

CatalogSeverity FindingReport::severityOf(const Fault &fault) const
{
    const auto rule = std::size_t(fault.rule);
    return m_settings.isGiven[rule] ? severityAt(m_settings.levels[rule]) : fault.severity;
}

// Gives its place in the list.
int FindingReport::addNew(const Fault &fault)
{
    const auto rule = std::size_t(fault.rule);
    const CatalogSeverity severity = severityOf(fault);
    ++totals[rule].findings;
    ++countOfSeverity[std::size_t(severity)];
    if (m_settings.findingsPerRule > 0 && totals[rule].findings > m_settings.findingsPerRule)
        return notListed;
    CatalogFinding finding;
    finding.rule = QLatin1String(ruleRow(fault.rule).id);
    finding.severity = severity;
    finding.line = fault.place.start.line;
    finding.column = fault.place.start.column;
    finding.endLine = fault.place.end.line;
    finding.endColumn = fault.place.end.column;
    finding.field = fault.place.field;
    if (fault.place.record >= 0) {
        finding.record = kindOf(m_catalog, fault.place.record);
        finding.key = m_catalog.texts.text(m_catalog.keyOf(fault.place.record)).toString();
    }
    finding.affected = fault.affected;
    finding.count = fault.count;
    findings.append(finding);
    return findings.size() - 1;
}

// Rules that refuse cannot be turned off, and unknown ones are none.
void FindingReport::findSuppressions()
{
    for (std::size_t index = 0; index < m_catalog.directives.size(); ++index) {
        const Directive &directive = m_catalog.directives[index];
        for (const Symbol id : directive.rules) {
            const RuleRow *row = ruleRow(m_catalog.texts.text(id));
            if (!row || row->use == RuleUse::Refuses)
                continue;
            const auto rule = std::size_t(row->rule);
            if (!directive.isForFile)
                m_suppressions[rule].push_back({directive.at, directive.end, index});
            else if (m_suppressedInFile[rule] < 0)
                m_suppressedInFile[rule] = int(index);
        }
    }
}

// Those of a rule are in file order, and end in that order, too.
bool FindingReport::isSuppressed(Rule rule, Position at)
{
    const std::vector<Suppression> &suppressions = m_suppressions[std::size_t(rule)];
    const auto found = std::lower_bound(
        suppressions.begin(), suppressions.end(), at,
        [](const Suppression &suppression, Position wanted) { return suppression.end < wanted; });
    if (found != suppressions.end() && found->start < at) {
        m_isUseful[found->directive] = true;
        return true;
    }
    const int inFile = m_suppressedInFile[std::size_t(rule)];
    if (inFile >= 0)
        m_isUseful[std::size_t(inFile)] = true;
    return inFile >= 0;
}

// Of a broken file nobody knows what a directive would turn off.
void FindingReport::reportDirectives()
{
    for (std::size_t index = 0; index < m_catalog.directives.size(); ++index) {
        const Directive &directive = m_catalog.directives[index];
        bool isAsked = m_catalog.isWhole;
        for (const Symbol id : directive.rules) {
            const RuleRow *row = ruleRow(m_catalog.texts.text(id));
            isAsked = isAsked && row && row->use != RuleUse::Refuses && isOn(row->rule);
            if (!row || row->use == RuleUse::Refuses)
                reportBadRule(directive, id, row);
        }
        if (!isAsked || m_isUseful[index])
            continue;
        if (CatalogFinding *finding = add(Fault(Rule::UselessDirective, placeAt(directive.at)))) {
            finding->message = QStringLiteral("this comment turns off nothing that was found");
            finding->hint = QStringLiteral("remove it");
        }
    }
}

void FindingReport::reportBadRule(const Directive &directive, Symbol id, const RuleRow *row)
{
    CatalogFinding *finding = add(Fault(Rule::UnknownDirective, placeAt(directive.at)));
    if (!finding)
        return;
    const QString name = quoted(m_catalog.texts.text(id));
    finding->message = row ? QStringLiteral("%1 cannot be turned off: the file does not load").arg(name)
                           : QStringLiteral("there is no rule %1").arg(name);
    if (row)
        return;
    NearName near(m_catalog.texts.text(id));
    for (const CatalogRule &rule : CatalogChecker::rules())
        near.offer(rule.id);
    if (!near.nearest().isEmpty())
        finding->hint = QStringLiteral("did you mean %1?").arg(near.nearest());
}

} // namespace Orvida::Checking
