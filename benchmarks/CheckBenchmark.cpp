// How long checking takes, beside loading the same file.
#include "benchmarks/BenchmarkFiles.h"

#include "checking/CatalogChecker.h"

#include <benchmark/benchmark.h>

using namespace Orvida::Benchmarks;

namespace {

void checkCatalog(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        Orvida::Checking::CatalogChecker checker;
        if (!checker.check(path))
            state.SkipWithError("does not load");
        benchmark::DoNotOptimize(checker.findings().size());
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(checkCatalog)->RangeMultiplier(10)->Range(100000, 100000000)->Unit(benchmark::kMillisecond);
