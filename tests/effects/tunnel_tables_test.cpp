#include "effects/tunnel_tables.h"

#include "core/convert.h"
#include "core/trig.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumenfold {
namespace {

using trig::atan2;
using trig::sin;

struct Case {
    const char* name;
    void (*build)(TunnelTable&, FrameInfo);
    double (*low)(int x, int y);
    double (*high)(int x, int y);
    int width, height;
};

double distance(int x, int y) {
    return std::sqrt(x * x + y * y);
}

const Case cases[] = {
    {"tunnel", buildTunnelTable, [](int x, int y) { return atan2(x, y) * 81.48; },
     [](int x, int y) { return distance(x, y) * 0.4; }, 512, 270},
    {"spiral", buildSpiralTable, [](int x, int y) { return atan2(y, x) * 40.74 + distance(x, y) * 0.3333333333333333; },
     [](int x, int y) { return 255 - distance(x, y) * 0.6; }, 512, 270},
    {"warp", buildWarpTable, [](int x, int y) { return atan2(x, y) * 40.74 + sin(distance(x, y) * 0.04) * 5.0; },
     [](int x, int y) { return distance(x, y) * 0.2; }, 512, 384},
};

TEST(TunnelTables, EveryEntry) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TunnelTable table{1, 2, 3}; // what it held before goes
        c.build(table, {c.width, c.height, 0, 0, 0});
        ASSERT_EQ(table.size(), static_cast<std::size_t>(c.width * c.height));
        const std::uint16_t* entry = table.data();
        for (int y = -(c.height / 2); y <= c.height / 2 - 1; ++y)
            for (int x = -(c.width / 2); x <= c.width / 2 - 1; ++x, ++entry) {
                ASSERT_EQ(*entry & 255, truncate(c.low(x, y)) & 255) << x << ' ' << y;
                ASSERT_EQ(*entry >> 8, truncate(c.high(x, y)) & 255) << x << ' ' << y;
            }
    }
}

} // namespace
} // namespace lumenfold
