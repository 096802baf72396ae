#include "effects/framed_fire_pole.h"

#include "show_scenes.h"

namespace lumenfold {
namespace {

class FramedFirePole : public test::ShowScenes {
  protected:
    static bool inPane(std::size_t i) {
        const std::size_t x = i % 512, y = i / 512;
        return x >= 160 && x < 480 && y >= 85 && y < 305;
    }
};

TEST_F(FramedFirePole, FirstFramePaintsThePictureAndLaterOnesOnlyThePane) {
    load({framedFirePole});
    const test::Frame frame3d = picture("3dframe.jpg", 512, 384);
    test::Frame frame(pixelCount(test::show), 0x00ABCDEF);
    draw(framedFirePole, frame, 100.0F);
    for (std::size_t i = 0; i < frame.size(); ++i)
        ASSERT_TRUE(inPane(i) || frame[i] == frame3d[i]) << i;
    frame.assign(frame.size(), 0x00ABCDEF);
    draw(framedFirePole, frame, 101.0F);
    for (std::size_t i = 0; i < frame.size(); ++i)
        ASSERT_EQ(frame[i] == 0x00ABCDEF, !inPane(i)) << i;
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
