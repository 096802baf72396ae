#include "effects/tunnel_tables.h"

#include "core/convert.h"
#include "core/trig.h"

#include <cmath>

namespace lumenfold {

namespace {

// entry(x, y, r): x, y from the middle, r the distance from it.
template <class Entry>
void buildTable(TunnelTable& out, FrameInfo size, Entry entry) {
    out.clear();
    out.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    for (int y = -(size.height / 2); y < size.height / 2; ++y)
        for (int x = -(size.width / 2); x < size.width / 2; ++x)
            out.push_back(entry(x, y, std::sqrt(static_cast<double>(x * x + y * y))));
}

std::uint16_t pack(double column, double row) {
    return static_cast<std::uint16_t>(lowByte(row) << 8 | lowByte(column));
}

} // namespace

void buildTunnelTable(TunnelTable& out, FrameInfo viewport) {
    buildTable(out, viewport, [](int x, int y, double r) { return pack(trig::atan2(x, y) * 81.48, r * 0.4); });
}

void buildSpiralTable(TunnelTable& out, FrameInfo viewport) {
    buildTable(out, viewport, [](int x, int y, double r) {
        return pack(trig::atan2(y, x) * 40.74 + r * 0.3333333333333333, 255 - r * 0.6);
    });
}

void buildWarpTable(TunnelTable& out, FrameInfo settings) {
    buildTable(out, settings, [](int x, int y, double r) {
        return pack(trig::atan2(x, y) * 40.74 + trig::sin(r * 0.04) * 5.0, r * 0.2);
    });
}

} // namespace lumenfold
