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
}

QString Check::keyOf(int record) const
{
    for (const LocatedField *field = catalog.begin(record); field != catalog.end(record); ++field) {
        if (!field->isOverruled && field->value != 0
            && catalog.format(record, *field).keySpace != KeySpace::None)
            return shownText(field->value);
    }
    return QStringLiteral("in line %1").arg(catalog.record(record).start.line);
}

QLatin1String Check::nameOf(int record) const
{
    return CatalogFormat::record(int(catalog.record(record).kind)).name;
}

QString Check::nearKey(KeySpace space, Symbol key)
{
    NearName near(text(key));
    links.keys(space).forEach([&](const Groups::Members &records) {
        if (m_comparisons > 0)
            near.offer(text(Symbol(records.key())));
        --m_comparisons;
    });
    return didYouMean(near.nearest());
}

QString didYouMean(QStringView name)
{
    return name.isEmpty() ? QString() : QStringLiteral("did you mean %1?").arg(shown(name));
}

} // namespace Orvida::Checking
