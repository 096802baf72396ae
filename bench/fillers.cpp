#include "bench/filler_load.h"
#include "bench/measure.h"
#include "bench/peer_llvmpipe.h"
#include "bench/sections.h"

#include <map>
#include <string>
#include <utility>

namespace lumenfold::bench {

namespace {

// Covered megapixels a second.
template <class Load>
double throughput(Load& load) {
    return static_cast<double>(load.coveredPixels()) / sample([&load] { load.drawPicture(); }).median();
}

bool adds(FillerMode mode) {
    return mode == FillerMode::PerspectiveAdd || mode == FillerMode::AffineAdd;
}

} // namespace

void measureFillers(Report& report, bool peers) {
    report.section("Fillers, right triangles, depth-tested, 256 x 256 texture");
    std::map<std::pair<int, bool>, double> peer; // by side and whether added
    for (const FillerMode mode : fillerModes) {
        for (const int side : fillerSides) {
            FillerLoad load(mode, side);
            const double value = throughput(load);
            const std::string name = std::string(fillerName(mode)) + ", side " + std::to_string(side);
            if (!peers) {
                report.add(name, value, "Mpixel/s");
                continue;
            }
            const std::pair<int, bool> key{side, adds(mode)};
            if (peer.count(key) == 0) {
                LlvmpipeLoad peerLoad(side, adds(mode));
                peer[key] = throughput(peerLoad);
            }
            report.add(name, value, "Mpixel/s", "llvmpipe", peer[key]);
        }
    }
}

} // namespace lumenfold::bench
