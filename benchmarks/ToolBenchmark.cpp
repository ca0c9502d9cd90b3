// Time of the tool as a process.
#include "benchmarks/BenchmarkFiles.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Orvida::Benchmarks;

namespace {

void toolJson(benchmark::State &state)
{
    const QByteArray command = QByteArray(ORVIDA_CATALOG_TOOL " json --compact ")
                               + catalogFile(state.range(0)).toLocal8Bit() + " > /dev/null";
    for (auto _ : state) {
        if (std::system(command.constData()) != 0)
            state.SkipWithError("the tool failed");
    }
}

} // namespace

BENCHMARK(toolJson)->Arg(10000000)->UseRealTime()->Unit(benchmark::kMillisecond);
