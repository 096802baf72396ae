// Google Benchmark over the fillers: right triangles of several sides, with every target's vector instructions.
// items_per_second are covered pixels.

#include "bench/filler_load.h"
#include "core/vector_target.h"

#include <benchmark/benchmark.h>

#include <string>

namespace lumenfold::bench {

namespace {

void drawTriangles(benchmark::State& state, FillerMode mode, int side, const std::string& target) {
    useVectorTarget(target);
    FillerLoad load(mode, side);
    for (auto _ : state) // NOLINT(clang-analyzer-deadcode.DeadStores): the library counts with it
        load.drawPicture();
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * load.coveredPixels());
}

const bool registered = [] {
    for (const FillerMode mode : fillerModes) {
        for (const int side : fillerSides) {
            for (const std::string& target : vectorTargets()) {
                const std::string name = std::string(fillerName(mode)) + "/" + target + "/" + std::to_string(side);
                benchmark::RegisterBenchmark(name.c_str(), drawTriangles, mode, side, target);
            }
        }
    }
    return true;
}();

} // namespace

} // namespace lumenfold::bench

BENCHMARK_MAIN();
