// Time of a host's most frequent calls: the style of a catalog, a catalog from the cache, children.
#include "benchmarks/BenchmarkFiles.h"

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "catalogs/access/ICatalogFileNameProvider.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include <QRandomGenerator>

#include <benchmark/benchmark.h>

using namespace Orvida::Benchmarks;
using namespace Orvida::Catalogs;

namespace {

struct GeneratedFiles : ICatalogFileNameProvider
{
    QString getCatalogFileName(const QString &catalogId) const override
    {
        return catalogFile(catalogId.toLongLong());
    }
};

void styleQuery(benchmark::State &state)
{
    const bool isFirst = state.range(1) != 0;
    const QString path = catalogFile(state.range(0), isFirst ? CatalogGenerator::StylePlace::First
                                                             : CatalogGenerator::StylePlace::Last);
    for (auto _ : state) {
        if (CatalogXMLParser().readCatalogStyleFlag(path) != Q_INT64_C(2147483648))
            state.SkipWithError("wrong style");
    }
}

void cacheHit(benchmark::State &state)
{
    GeneratedFiles files;
    CatalogConfigData::setCatalogFileNameProvider(&files);
    CatalogManager *manager = CatalogManager::instance();
    const QString id = QStringLiteral("1000000");
    const CatalogSptr catalog = manager->getCatalog(id);
    for (auto _ : state) {
        if (manager->getCatalog(id) != catalog)
            state.SkipWithError("not cached");
    }
    CatalogConfigData::setCatalogFileNameProvider(nullptr);
}

enum SiblingOrder { Sorted, Reversed, AllEqual, Random };

QSharedPointer<CatalogItem> parentOf(int siblings, SiblingOrder order)
{
    QRandomGenerator random(1);
    QSharedPointer<CatalogItem> parent(new CatalogItem);
    for (int i = 0; i < siblings; ++i) {
        QSharedPointer<CatalogItem> child(new CatalogItem);
        const int sortOrders[] = {i, -i, 0, random.bounded(siblings)};
        child->setSortOrder(sortOrders[order]);
        parent->addChildItem(child);
    }
    return parent;
}

void firstChildItems(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto parent = parentOf(static_cast<int>(state.range(0)), static_cast<SiblingOrder>(state.range(1)));
        state.ResumeTiming();
        benchmark::DoNotOptimize(parent->getChildItems().size());
        state.PauseTiming();
        parent.reset();
        state.ResumeTiming();
    }
}

void nextChildItems(benchmark::State &state)
{
    const auto parent = parentOf(static_cast<int>(state.range(0)), Random);
    parent->getChildItems();
    for (auto _ : state)
        benchmark::DoNotOptimize(parent->getChildItems().size());
}

} // namespace

BENCHMARK(styleQuery)
    ->ArgNames({"bytes", "first"})
    ->Args({1000000, 1})
    ->Args({100000000, 1})
    ->Args({100000000, 0})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(cacheHit);
BENCHMARK(firstChildItems)
    ->ArgNames({"siblings", "order"})
    ->ArgsProduct({{10, 1000, 100000}, {Sorted, Reversed, AllEqual, Random}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(nextChildItems)->Arg(100000);
