// What rules look at, and where they put what they find. For the checker's own use.
#pragma once

#include "checking/findings/FindingReport_p.h"
#include "checking/findings/NearName_p.h"
#include "checking/findings/Wording_p.h"
#include "checking/reading/CatalogLinks_p.h"
#include "checking/reading/LocatedCatalog_p.h"

#include <QString>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace Orvida::Checking {

/// Where a file is in the readable form that should not be.
struct ClearTexts
{
    int count = 0;
    int ofScrambled = 0;
    /// The first of them.
    Position start;
    Position end;
    /// Why the file does not load for this reason; no failure when it does.
    Catalogs::CatalogReadFailure failure;
};

/// One check of one file.
class Check
{
public:
    Check(const QString &file, const Catalogs::CatalogReadFailure &fault,
          const std::optional<ClearTexts> &clear, const LocatedCatalog &located, const CatalogLinks &linked,
          FindingReport &findings);

    /// See FindingReport::add().
    CatalogFinding *add(const Fault &fault) { return report.add(fault); }

    /// Calls `visit` with each incident of this kind.
    template <typename Visit>
    void forEachIncident(Incident::Kind kind, Visit visit) const
    {
        for (const Incident &incident : catalog.incidents) {
            if (incident.kind == kind)
                visit(incident);
        }
    }

    /// Calls `visit` with each record of this kind that is read, and then with its number.
    template <typename Visit>
    void forEachRecord(Section kind, Visit visit) const
    {
        for (int record = 0; record < catalog.recordCount(); ++record) {
            if (catalog.record(record).kind == kind && !catalog.record(record).isLost())
                visit(record);
        }
    }

    /// Calls `visit` with each field of the records that are read, overruled ones included, and their
    /// records.
    template <typename Visit>
    void forEachField(Visit visit) const
    {
        for (int record = 0; record < catalog.recordCount(); ++record) {
            const LocatedRecord::State state = catalog.record(record).state;
            if (state != LocatedRecord::Kept && state != LocatedRecord::Refused)
                continue;
            for (const LocatedField *field = catalog.begin(record); field != catalog.end(record); ++field)
                visit(record, *field);
        }
    }

    /// Calls `visit` with each value of the file, overruled ones included, and its record, if `isWanted` is
    /// true of its text.
    template <typename IsWanted, typename Visit>
    void forEachValue(IsWanted isWanted, Visit visit) const
    {
        std::vector<bool> wanted(std::size_t(catalog.texts.size()));
        for (int symbol = 0; symbol < catalog.texts.size(); ++symbol)
            wanted[std::size_t(symbol)] = isWanted(catalog.texts.text(symbol));
        if (std::find(wanted.begin(), wanted.end(), true) == wanted.end())
            return;
        for (int record = 0; record < catalog.recordCount(); ++record) {
            for (const LocatedField *field = catalog.begin(record); field != catalog.end(record); ++field) {
                if (wanted[std::size_t(field->value)])
                    visit(record, *field);
            }
        }
    }

    /// Calls `visit` with each input field and, one by one, the definitions of its column. There may be too
    /// many of them to look at, of one column in thousands of profiles; then not all are.
    template <typename Visit>
    void forEachFieldAndColumn(Visit visit) const
    {
        qint64 left = mostVisits;
        for (const CatalogLinks::InputField &field : links.inputFields()) {
            const Groups::Members columns = links.columns(field.column);
            left -= columns.size();
            if (left < 0)
                return;
            for (const int column : columns)
                visit(field, column);
        }
    }

    QStringView text(Symbol symbol) const { return catalog.texts.text(symbol); }
    QString shownText(Symbol symbol) const { return shown(text(symbol)); }
    QString quotedText(Symbol symbol) const { return quoted(text(symbol)); }
    /// The key of a record, as messages name it.
    QString keyOf(int record) const;
    QString lineOf(int record) const { return QString::number(catalog.record(record).start.line); }
    QLatin1String nameOf(int record) const;

    /// Whether one more name may be compared: looking for near names is slow, and a file may hold millions.
    bool mayCompare() { return m_comparisons > 0 && m_comparisons-- > 0; }
    /// "did you mean X?", for a key that nothing has; empty when no key is near.
    QString nearKey(KeySpace space, QStringView key);
    /// Adds that `fault` refers to a key that no record has: to the finding of a lost record that would have
    /// it, otherwise as a finding of its own, one for each key, with the near key as its hint.
    CatalogFinding *addUnknown(Fault fault, KeySpace space, Symbol key);

    const QString &fileName;
    /// What was wrong with the file itself; no failure when it was read to its end.
    const Catalogs::CatalogReadFailure &readingFault;
    /// Set when the file was then read as the readable form that it is.
    const std::optional<ClearTexts> &clearTexts;
    const LocatedCatalog &catalog;
    const CatalogLinks &links;
    FindingReport &report;

    static constexpr qint64 mostVisits = 4000000;

private:
    static constexpr std::size_t spaceCount = std::size_t(KeySpace::ParameterExtension) + 1;

    int keylessRecordFor(KeySpace space, Symbol key);
    const std::vector<Symbol> &keysIn(KeySpace space);

    /// Refused records without a key, the last one first. They are taken for the owners of unknown keys, one
    /// each.
    std::array<std::vector<int>, spaceCount> m_keyless;
    std::map<std::pair<KeySpace, Symbol>, int> m_keylessOwners;
    /// The keys that there are; filled when they are looked for.
    std::array<std::vector<Symbol>, spaceCount> m_keys;
    int m_comparisons;
};

/// "did you mean X?"; empty for an empty name.
QString didYouMean(QStringView name);

} // namespace Orvida::Checking
