#include "core/kernels.h"

#include "bench/filler_load.h"
#include "bench/measure.h"
#include "bench/sections.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace lumenfold::bench {

namespace {

constexpr std::size_t count = std::size_t{512} * 384;

struct Pass {
    const char* name;
    std::size_t quarterFrames; // of pixels read and written, in quarters of a frame
    std::function<void()> run;
};

} // namespace

void measureKernels(Report& report, bool peers) {
    report.section("Passes over a frame");
    constexpr std::size_t margin = 512; // what the smears read beside the frame
    std::vector<Pixel32> frame(count + 2 * margin, 0x00112233);
    std::vector<Pixel32> a(count, 0x00654321);
    std::vector<Pixel32> b(count, 0x00010203);
    std::vector<std::uint16_t> table(count);
    for (std::size_t i = 0; i < count; ++i)
        table[i] = static_cast<std::uint16_t>(i / 512 * 128 + i % 512 / 2);
    const std::vector<Pixel32> texture = loadTexture();
    Pixel32* const p = frame.data() + margin;

    const Pass passes[] = {
        {"copyPixels", 8, [&] { copyPixels(p, a.data(), count); }},
        {"fillPixels", 4, [&] { fillPixels(p, 0x00112233, count); }},
        {"addSaturated in place", 12, [&] { addSaturated(p, a.data(), count); }},
        {"addSaturated of two", 12, [&] { addSaturated(p, a.data(), b.data(), count); }},
        {"addSaturatedConstant", 8, [&] { addSaturatedConstant(p, 0x00010101, count); }},
        {"fade", 8, [&] { fade(p, 250, count); }},
        {"crossFade", 12, [&] { crossFade(p, a.data(), 100, count); }},
        {"averageHalves in place", 12, [&] { averageHalves(p, p, a.data(), count); }},
        {"averageHalves of two", 12, [&] { averageHalves(p, a.data(), b.data(), count); }},
        {"smearHalves, 1 apart", 8, [&] { smearHalves(p, 1, count); }},
        {"smearHalves, 8 apart", 8, [&] { smearHalves(p, 8, count); }},
        {"smearQuarters, 4 apart", 8, [&] { smearQuarters(p, 4, count); }},
        {"smearQuarters, a row apart", 8, [&] { smearQuarters(p, 512, count); }},
        {"mapTable", 10, [&] { mapTable(p, table.data(), 77, texture.data(), count); }},
        {"mapTableReversed", 10, [&] { mapTableReversed(p, table.data(), 77, texture.data(), count); }},
        {"overlayKeyed", 12, [&] { overlayKeyed(p, a.data(), 0x00FFFFFF, count); }},
    };
    for (const Pass& pass : passes) {
        const double time = sample(pass.run).median();
        if (peers) // which reads one half of them and writes the other
            report.add(pass.name, time, "us", "memcpy of the same bytes",
                       copyMicroseconds(count / 8 * pass.quarterFrames));
        else
            report.addTime(pass.name, time);
    }
}

} // namespace lumenfold::bench
