// Gathers the findings of one check. For the checker's own use.
#pragma once

#include "checking/CatalogChecker.h"
#include "checking/reading/LocatedCatalog_p.h"
#include "checking/rules/RuleTable_p.h"

#include <QHash>
#include <QMap>
#include <QVarLengthArray>
#include <QVector>

#include <array>
#include <vector>

namespace Orvida::Checking {

/// How many other places a finding lists.
constexpr int mostRelated = 5;

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
/// A point in the file, inside `record` unless it is -1.
Place placeAt(Position at, int record = -1, const QString &field = QString());
/// After the start tag of a record.
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
    Fault &affecting(int number)
    {
        affected = number;
        return *this;
    }
    /// Counts this fault as so many.
    Fault &times(int number)
    {
        count = number;
        return *this;
    }
    /// The record, or something of it, is lost by it: references to that are no findings of their own.
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
    int count = 1;
    QVarLengthArray<int, 2> losses;
};

/// Takes the faults that rules find, and keeps what is to be reported: merges those with one cause,
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
    /// Adds a further place, unless it is known already or there are enough of them.
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

    // A rule, and a thing that it found something about.
    struct Subject
    {
        Rule rule;
        qint64 thing;

        friend bool operator==(const Subject &a, const Subject &b)
        {
            return a.rule == b.rule && a.thing == b.thing;
        }
        // Things are often pairs of numbers, which are not to fall together.
        friend uint qHash(const Subject &subject, uint seed = 0)
        {
            const quint64 mixed =
                (quint64(subject.thing) + quint64(subject.rule)) * Q_UINT64_C(0x9E3779B97F4A7C15);
            return uint(mixed >> 32) ^ seed;
        }
    };

    // What was added for a subject.
    struct Known
    {
        int index; // in `findings`, or that it is not listed
        CatalogSeverity severity;
    };

    // What refers to a lost record.
    struct Consequences
    {
        int affected = 0;
        QVector<CatalogRelated> related;
    };

    void findSuppressions();
    void reportConsequences();
    bool isSuppressed(Rule rule, Position at);
    CatalogSeverity severityOf(const Fault &fault) const;
    int addNew(const Fault &fault);
    void merge(const Fault &fault, Known &known);
    void reportDirectives();
    void reportBadRule(const Directive &directive, Symbol id, const RuleRow *row);

    const LocatedCatalog &m_catalog;
    const Settings &m_settings;
    QHash<Subject, Known> m_subjects;
    /// Places in `findings` by the record that is lost.
    QHash<int, int> m_losses;
    /// By lost record. Kept until the end: the rule that finds the loss may come later.
    QMap<int, Consequences> m_consequences;
    std::array<std::vector<Suppression>, std::size_t(Rule::Count)> m_suppressions;
    std::array<int, std::size_t(Rule::Count)> m_suppressedInFile;
    std::vector<bool> m_isUseful; // by directive
};

} // namespace Orvida::Checking
