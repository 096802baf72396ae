// Google Benchmark over the fillers: right triangles of several sides, with the vectorised and with the plain code.
// items_per_second are covered pixels.

#include "bench/filler_load.h"
#include "core/kernels.h"

#include <benchmark/benchmark.h>

#include <string>

namespace lumenfold::bench {

namespace {

void drawTriangles(benchmark::State& state, FillerMode mode, int side, bool vector) {
    setVectorCode(vector);
    FillerLoad load(mode, side);
    for (auto _ : state) // NOLINT(clang-analyzer-deadcode.DeadStores): the library counts with it
        load.drawPicture();
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * load.coveredPixels());
    setVectorCode(true);
}

const bool registered = [] {
    for (const FillerMode mode : fillerModes) {
        for (const int side : fillerSides) {
            for (const bool vector : {true, false}) {
                const std::string name =
                    std::string(fillerName(mode)) + (vector ? "/vector/" : "/plain/") + std::to_string(side);
                benchmark::RegisterBenchmark(name.c_str(), drawTriangles, mode, side, vector);
            }
        }
    }
    return true;
}();

} // namespace

} // namespace lumenfold::bench

BENCHMARK_MAIN();
