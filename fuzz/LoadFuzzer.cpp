// Fuzz target: any bytes as a catalog file. Loads it, visits all that a host can reach, and destroys it.
#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "fuzz/MemoryFile.h"
#include "support/CatalogWalk.h"

#include <QSet>
#include <QWeakPointer>

#include <algorithm>

using namespace Orvida::Catalogs;
using Orvida::Fuzz::stopAt;

namespace {

// The catalog's own profile first, then all that columns and lists name.
QStringList profilesOf(const CatalogXMLParser &parser, const QString &current)
{
    QSet<QString> profiles;
    for (const CatalogParserProfile &profile : parser.m_profiles)
        profiles.insert(profile.pk);
    for (const CatalogParserListClass &listClass : parser.m_listClasses)
        profiles.insert(listClass.profileFk);
    for (const QList<CatalogParserColumn> &columns : parser.m_columns) {
        for (const CatalogParserColumn &column : columns)
            profiles.insert(column.profileFk);
    }
    profiles.remove(current);
    return QStringList(current) + profiles.values();
}

// Reading the same file twice gives the same, and a failure has a reason.
QString faultOfReading(const CatalogXMLParser &parser, bool isRead, const Catalog &catalog)
{
    if (isRead != catalog.IsValid() || isRead != (parser.failure().reason == CatalogReadFailure::None))
        return QStringLiteral("reading and loading differ, or a failure has no reason");
    return QString();
}

// Each extension of an item has one field for each profile that its column is in.
QString faultOfFieldCount(const CatalogXMLParser &parser, Catalog &catalog, const QStringList &profiles)
{
    const QHash<QString, QSharedPointer<CatalogItem>> items = catalog.getCatalogItems();
    for (const QString &profile : profiles) {
        int expected = 0;
        for (const CatalogParserParamExtended &extension : parser.m_parameterExtensions) {
            const auto columns = parser.m_columns.value(extension.columnId);
            expected +=
                items.contains(extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk)
                && std::any_of(columns.begin(), columns.end(),
                               [&profile](const auto &column) { return column.profileFk == profile; });
        }
        catalog.setProfile(profile);
        for (const auto &item : items)
            expected -= item->getFields().size();
        if (expected != 0)
            return QStringLiteral("%1 fields too few in profile %2").arg(expected).arg(profile);
    }
    return QString();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // The library reports orphans there.
    return std::freopen("/dev/null", "w", stdout) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString path = Orvida::Fuzz::pathOfBytes(data, size);
    CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("fuzz"));
    CatalogXMLParser parser;
    QHash<QString, QSharedPointer<CatalogItem>> items;
    const bool isRead = parser.readFile(path, items);
    stopAt(faultOfReading(parser, isRead, *catalog));
    const QStringList profiles = profilesOf(parser, catalog->profile());
    stopAt(Orvida::Tests::faultOf(*catalog, profiles));
    if (catalog->IsValid())
        stopAt(faultOfFieldCount(parser, *catalog, profiles));

    QList<QWeakPointer<CatalogItem>> loaded;
    for (const auto &item : qAsConst(catalog->getCatalogItems()))
        loaded.append(item);
    catalog.reset();
    for (const auto &item : qAsConst(loaded))
        stopAt(item ? QStringLiteral("an item outlives its catalog") : QString());
    return 0;
}
