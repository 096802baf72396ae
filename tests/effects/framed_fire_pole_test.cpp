#include "effects/framed_fire_pole.h"

#include "show_scenes.h"

namespace lumenfold {
namespace {

using FramedFirePole = test::ShowScenes;

TEST_F(FramedFirePole, LaterFramesPaintOnlyThePane) {
    load({framedFirePole});
    test::Frame frame = blank();
    draw(framedFirePole, frame, 100.0F);
    frame.assign(frame.size(), 0x00ABCDEF);
    draw(framedFirePole, frame, 101.0F);
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const std::size_t x = i % 512, y = i / 512;
        const bool inPane = x >= 160 && x < 480 && y >= 85 && y < 305;
        ASSERT_EQ(frame[i] == 0x00ABCDEF, !inPane) << i;
    }
}

// Eight jumps of 32 texels are a whole turn of the plate's texture; fewer show it elsewhere.
TEST_F(FramedFirePole, EveryFlagMovesTheNameplateByAnEighth) {
    const auto last = [this](int flags) {
        load({framedFirePole});
        test::Frame frame = blank();
        for (int n = 0; n < 10; ++n) {
            if (n < flags)
                syncState.syncFlag37 = 1;
            draw(framedFirePole, frame, static_cast<float>(n));
            EXPECT_EQ(syncState.syncFlag37, 0);
        }
        return frame;
    };
    const test::Frame still = last(0);
    for (int flags = 1; flags < 8; ++flags)
        EXPECT_NE(last(flags), still) << flags;
    EXPECT_EQ(last(8), still);
}

} // namespace
} // namespace lumenfold
