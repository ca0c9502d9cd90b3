// Gathers the findings of one check. For the checker's own use.
#pragma once

#include "checking/CatalogChecker.h"
#include "checking/reading/LocatedCatalog_p.h"
#include "checking/rules/RuleTable_p.h"

#include <QHash>
#include <QMap>
#include <QPair>
#include <QVarLengthArray>
#include <QVector>

#include <array>
#include <vector>

namespace Orvida::Checking {

/// Where a finding is.
struct Place
{
    Position start;
    Position end;
    int record = -1;
    QString field;
};

/// The whole file.
inline Place wholeFile()
{
    return {};
}
/// A point in the file, inside of `record` unless it is -1.
Place placeAt(Position at, int record = -1, const QString &field = QString());
/// Behind the start tag of a record.
Place placeOf(const LocatedCatalog &catalog, int record);
/// The text of a field.
Place placeOf(const LocatedCatalog &catalog, int record, const LocatedField &field);
/// The text of the field `token`; the record, when it has none.
Place placeOf(const LocatedCatalog &catalog, int record, int token);
template <typename Token>
Place placeOf(const LocatedCatalog &catalog, int record, Token token)
{
    return placeOf(catalog, record, static_cast<int>(token));
}

/// That a rule is broken.
class Fault
{
public:
    Fault(Rule brokenRule, Place where)
        : rule(brokenRule), place(std::move(where)), severity(ruleRow(brokenRule).severity)
    {
    }

    /// Faults of one rule about one subject are one finding.
    Fault &about(qint64 thing)
    {
        subject = thing;
        return *this;
    }
    Fault &as(CatalogSeverity other)
    {
        severity = other;
        return *this;
    }
    /// How many further records suffer from it.
    Fault &affecting(int count)
    {
        affected = count;
        return *this;
    }
    /// The record, or something of it, is lost by it: references to that are not told again.
    Fault &losing(int record)
    {
        losses.append(record);
        return *this;
    }

    Rule rule;
    Place place;
    CatalogSeverity severity;
    qint64 subject = -1;
    int affected = 0;
    QVarLengthArray<int, 2> losses;
};

/// Takes the faults that rules find, and keeps what is to be told of them: merges those with one cause,
/// leaves out what is turned off, lists a limited number and counts the rest.
class FindingReport
{
public:
    using Levels = std::array<CatalogChecker::Level, std::size_t(Rule::Count)>;
    using AllTotals = std::array<CatalogChecker::Totals, std::size_t(Rule::Count)>;

    /// The levels of all rules; those of which `isGiven` is true hold for milder cases, too.
    struct Settings
    {
        Levels levels{};
        std::array<bool, std::size_t(Rule::Count)> isGiven{};
        int findingsPerRule = 100;
    };

    FindingReport(const LocatedCatalog &catalog, const Settings &settings);

    /// Takes a fault. Gives the finding that is to be put into words, valid until the next call; null when
    /// there is none, because it is off, suppressed, merged into an earlier one, or beyond the limit.
    CatalogFinding *add(const Fault &fault);
    /// Counts a fault that is only a consequence: what it names is there, in a record that is lost. Tells so
    /// at the finding on that one.
    void addConsequence(const Fault &fault, int lostRecord);
    /// Adds a further place, unless there are enough of them.
    static void relate(CatalogFinding &finding, const Place &place, const QString &message);
    /// Whether anybody wants to know of the rule.
    bool isOn(Rule rule) const { return m_settings.levels[std::size_t(rule)] != CatalogChecker::Level::Off; }
    /// Adds what is to be said of the directives themselves; nothing may be added afterwards.
    void finish();

    QVector<CatalogFinding> findings;
    AllTotals totals{};
    std::array<int, 3> countOfSeverity{};

private:
    // Where a directive turns a rule off.
    struct Suppression
    {
        Position start;
        Position end;
        std::size_t directive;
    };

    // What refers to a lost record.
    struct Consequences
    {
        int affected = 0;
        QVector<CatalogRelated> related;
    };

    void findSuppressions();
    void tellConsequences();
    bool isSuppressed(Rule rule, Position at);
    int addNew(const Fault &fault);
    void tellDirectives();
    void tellBadRule(const Directive &directive, Symbol id, const RuleRow *row);

    const LocatedCatalog &m_catalog;
    const Settings &m_settings;
    /// Places in `findings`, -1 for a finding that is not listed: by rule and subject, and by the record that
    /// is lost.
    QHash<QPair<int, qint64>, int> m_subjects;
    QHash<int, int> m_losses;
    /// By lost record. Kept until the end: the rule that finds the loss may come later.
    QMap<int, Consequences> m_consequences;
    std::array<std::vector<Suppression>, std::size_t(Rule::Count)> m_suppressions;
    std::array<int, std::size_t(Rule::Count)> m_suppressedInFile;
    std::vector<bool> m_isUseful; // by directive
};

} // namespace Orvida::Checking
