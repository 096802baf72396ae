#include "effects/tunnel_dissolve.h"

#include "tests/support/pixels.h"

#include <gtest/gtest.h>

namespace lumenfold {
namespace {

using test::perByte;
using test::randomPixels;
using test::saturatedSum;
using test::withBothForms;

constexpr int boxPixels = 512 * 270;

TEST(TunnelDissolve, MatchesThePassPixelByPixel) {
    const auto spiralTexture = randomPixels(texturePixels, 1);
    const auto tunnelTexture = randomPixels(texturePixels, 2);
    const auto picture = randomPixels(boxPixels, 3);
    TunnelDissolve dissolve;
    buildTunnelTable(dissolve.tunnelTable, {512, 270, 0, 0, 0});
    buildSpiralTable(dissolve.spiralTable, {512, 270, 0, 0, 0});
    dissolve.tunnelTexture = tunnelTexture.data();
    dissolve.spiralTexture = spiralTexture.data();
    for (const std::int32_t offset : {0, 0x1FF01, -0x40003, 2147483647}) {
        for (const int alpha : {255, 128, 3}) {
            std::vector<Pixel32> expected(boxPixels);
            for (std::size_t i = 0; i < boxPixels; ++i) {
                const auto texel = [offset](std::uint16_t entry) {
                    return static_cast<std::size_t>((std::int64_t{entry} + offset) & 0xFFFF);
                };
                const Pixel32 p = saturatedSum(spiralTexture[texel(dissolve.spiralTable[boxPixels - 1 - i])],
                                               tunnelTexture[texel(dissolve.tunnelTable[i])]);
                expected[i] = perByte(p, picture[i], [alpha](Pixel32 a, Pixel32 b) {
                    return (a * static_cast<Pixel32>(alpha) + b * static_cast<Pixel32>(255 - alpha)) >> 8;
                });
            }
            dissolve.offset = offset;
            withBothForms([&] {
                std::vector<Pixel32> shipped(boxPixels);
                dissolve.draw(shipped.data(), picture.data(), static_cast<std::uint8_t>(alpha));
                ASSERT_EQ(shipped, expected) << offset << ' ' << alpha;
            });
        }
    }
}

TEST(TunnelDissolve, OffsetMovesOneColumnAndBackInRows) {
    TunnelDissolve dissolve;
    dissolve.move(3);
    EXPECT_EQ(dissolve.offset, 1 - 3 * 256);
    dissolve.move(-2);
    EXPECT_EQ(dissolve.offset, 2 - 256);
    dissolve.offset = 2147483647;
    dissolve.move(0);
    EXPECT_EQ(dissolve.offset, -2147483647 - 1);
}

} // namespace
} // namespace lumenfold
