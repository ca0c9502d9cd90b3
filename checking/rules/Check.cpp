#include "checking/rules/Check_p.h"

namespace Orvida::Checking {

namespace {

constexpr int mostComparisons = 5000000;

} // namespace

Check::Check(const QString &file, const Catalogs::CatalogReadFailure &fault,
             const std::optional<ClearTexts> &clear, const LocatedCatalog &located,
             const CatalogLinks &linked, FindingReport &findings)
    : fileName(file),
      readingFault(fault),
      clearTexts(clear),
      catalog(located),
      links(linked),
      report(findings),
      m_comparisons(mostComparisons)
{
    for (int record = 0; record < catalog.recordCount(); ++record) {
        if (catalog.record(record).state != LocatedRecord::Refused)
            continue;
        for (const CatalogFormat::Field *field :
             CatalogFormat::record(int(catalog.record(record).kind)).requiredFields()) {
            if (catalog.fieldOf(record, field->token) == nullptr)
                m_keyless[std::size_t(field->keySpace)].push_back(record);
        }
    }
    for (std::vector<int> &records : m_keyless)
        std::reverse(records.begin(), records.end());
}

QString Check::keyOf(int record) const
{
    const Symbol key = catalog.keyOf(record);
    return key != 0 ? shownText(key) : QStringLiteral("in line %1").arg(catalog.record(record).start.line);
}

QLatin1String Check::nameOf(int record) const
{
    return CatalogFormat::record(int(catalog.record(record).kind)).name;
}

QString Check::nearKey(KeySpace space, QStringView key)
{
    NearName near(key);
    for (const Symbol known : keysIn(space)) {
        if (!mayCompare())
            break;
        near.offer(text(known));
    }
    return didYouMean(near.nearest());
}

const std::vector<Symbol> &Check::keysIn(KeySpace space)
{
    std::vector<Symbol> &keys = m_keys[std::size_t(space)];
    if (keys.empty())
        links.keys(space).forEach(
            [&keys](const Groups::Members &records) { keys.push_back(Symbol(records.key())); });
    return keys;
}

CatalogFinding *Check::addUnknown(Fault fault, KeySpace space, Symbol key)
{
    const Groups::Members lost = links.lostRecordsWith(space, key);
    const int owner = lost.isEmpty() ? keylessRecordFor(space, key) : lost.first();
    if (owner >= 0) {
        report.addConsequence(fault, owner);
        return nullptr;
    }
    if (fault.subject < 0)
        fault.about(key);
    CatalogFinding *finding = add(fault);
    if (finding)
        finding->hint = nearKey(space, text(key));
    return finding;
}

// A record without key and a key without record surely belong together, unless the key is misspelt.
int Check::keylessRecordFor(KeySpace space, Symbol key)
{
    std::vector<int> &keyless = m_keyless[std::size_t(space)];
    const auto known = m_keylessOwners.find({space, key});
    if (known != m_keylessOwners.end())
        return known->second;
    if (keyless.empty() || !nearKey(space, text(key)).isEmpty())
        return -1;
    const int record = keyless.back();
    keyless.pop_back();
    m_keylessOwners.insert({{space, key}, record});
    return record;
}

QString didYouMean(QStringView name)
{
    return name.isEmpty() ? QString() : QStringLiteral("did you mean %1?").arg(shown(name));
}

} // namespace Orvida::Checking
