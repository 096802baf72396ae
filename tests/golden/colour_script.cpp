#include "colour_script.h"

#include "core/sync_values.h"

#include <algorithm>
#include <cmath>

namespace lumenfold::test {

namespace {

constexpr std::int64_t everyFrame = 20;
constexpr std::int32_t everyPixel = 7;
constexpr int fadeLuma = 12; // darker frames are fades, which have no say

// The phase that a command begins in a part, as the scenes have it.
bool beginsSecond(std::uint32_t value, std::int32_t part) {
    return (part == 1 && value == sync::hall) || (part == 2 && value == sync::swap) ||
           (part == 4 && value == sync::pulse);
}

void addPixel(ColourScript::Phase& phase, Pixel32 pixel) {
    const double red = pixel >> 16 & 0xFF;
    const double green = pixel >> 8 & 0xFF;
    const double blue = pixel & 0xFF;
    phase.luma += 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    // hue as an angle in the plane of opponent colours
    const double x = red - 0.5 * (green + blue);
    const double y = std::sqrt(0.75) * (green - blue);
    const double degrees = std::atan2(y, x) * 180.0 / 3.14159265358979 + 30.0;
    const auto sector = static_cast<std::size_t>(std::floor((degrees + 360.0) / 60.0)) % 6;
    phase.chroma[sector] += std::sqrt(x * x + y * y);
}

} // namespace

double ColourScript::Phase::share(std::size_t sector) const {
    double sum = 0.0;
    for (const double value : chroma)
        sum += value;
    return sum > 0.0 ? chroma[sector] / sum : 0.0;
}

void ColourScript::sync(std::uint32_t value, std::int32_t running) {
    second = second || beginsSecond(value, running);
}

void ColourScript::frame(const film::Frame& frame) {
    const bool changed = frame.part != part;
    if (changed)
        second = false;
    part = frame.part;
    if (part < 1 || part > 10 || frame.number % everyFrame != 0)
        return;
    const std::string name = "part " + std::to_string(part) + (second ? ", second phase" : "");
    if (all.empty() || all.back().name != name)
        all.push_back({name, {}, 0.0, 0});
    Phase seen;
    std::size_t count = 0;
    for (std::int32_t y = 0; y < frame.height; ++y) {
        const Pixel32* const row = frame.pixels + static_cast<std::ptrdiff_t>(y) * frame.width;
        if (std::all_of(row, row + frame.width, [](Pixel32 pixel) { return (pixel & 0x00FFFFFF) == 0; }))
            continue; // the bars of a letterbox have no say
        for (std::int32_t x = 0; x < frame.width; x += everyPixel, ++count)
            addPixel(seen, row[x]);
    }
    if (count == 0)
        return;
    seen.luma /= static_cast<double>(count);
    if (seen.luma < fadeLuma)
        return;
    for (std::size_t sector = 0; sector < 6; ++sector)
        all.back().chroma[sector] += seen.chroma[sector];
    all.back().luma += seen.luma;
    ++all.back().frames;
}

} // namespace lumenfold::test
