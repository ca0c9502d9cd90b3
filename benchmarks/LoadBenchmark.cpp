// Time of loading, by stages and compared with other ways to read the same file. The lower limit for a load
// by QXmlStreamReader is a bare pass of it.
#include "benchmarks/BenchmarkFiles.h"

#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include <QFile>
#include <QLoggingCategory>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Orvida::Benchmarks;
using namespace Orvida::Catalogs;

namespace {

void barePass(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return state.SkipWithError("cannot read");
        QXmlStreamReader reader(&file);
        while (!reader.atEnd())
            reader.readNext();
        if (reader.hasError())
            return state.SkipWithError("malformed");
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void readFile(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        auto parser = std::make_unique<CatalogXMLParser>();
        QHash<QString, QSharedPointer<CatalogItem>> items;
        if (!parser->readFile(path, items) || items.isEmpty())
            state.SkipWithError("cannot read");
        // What was read is destroyed outside the measured time.
        state.PauseTiming();
        items.clear();
        parser.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void loadCatalog(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("benchmark"));
        if (!catalog->IsValid())
            state.SkipWithError("cannot load");
        state.PauseTiming();
        catalog.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void loadCatalogWithLog(benchmark::State &state)
{
    const QtMessageHandler earlier =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &message) {
            benchmark::DoNotOptimize(message.constData());
        });
    QLoggingCategory::setFilterRules(QStringLiteral("*=true"));
    loadCatalog(state);
    QLoggingCategory::setFilterRules(QString());
    qInstallMessageHandler(earlier);
}

void endOfCatalog(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("benchmark"));
        state.ResumeTiming();
        catalog.reset();
    }
}

// The first access to the fields of every item, under one profile.
void firstFields(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("benchmark"));
        state.ResumeTiming();
        int fields = 0;
        for (const auto &item : qAsConst(catalog->getCatalogItems()))
            fields += item->getFields().size();
        if (fields == 0)
            state.SkipWithError("no fields");
        state.PauseTiming();
        catalog.reset();
        state.ResumeTiming();
    }
}

} // namespace

#define ORVIDA_SIZES ->RangeMultiplier(10)->Range(100000, 100000000)->Unit(benchmark::kMillisecond)

BENCHMARK(barePass) ORVIDA_SIZES;
BENCHMARK(readFile) ORVIDA_SIZES;
BENCHMARK(loadCatalog) ORVIDA_SIZES;
BENCHMARK(loadCatalogWithLog)->Arg(10000000)->Unit(benchmark::kMillisecond);
BENCHMARK(endOfCatalog)->Arg(10000000)->Unit(benchmark::kMillisecond);
BENCHMARK(firstFields)->Arg(10000000)->Unit(benchmark::kMillisecond);
