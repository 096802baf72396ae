#include "effects/wave_warp.h"

#include "core/kernels.h"
#include "show_scenes.h"

namespace lumenfold {
namespace {

class WaveWarp : public test::ShowScenes {
  protected:
    // The picture of one moment of demo time in a part that began so long before.
    test::Frame pictureAfter(float elapsed) {
        load({waveWarp});
        test::Frame frame = blank();
        draw(waveWarp, frame, moment - elapsed);
        draw(waveWarp, frame, moment);
        return frame;
    }

    static constexpr float moment = 2000.0F;
};

// Up to the last step, which is still a little dark.
TEST_F(WaveWarp, FadesInThroughAllItsSteps) {
    const test::Frame full = pictureAfter(256.0F);
    EXPECT_EQ(pictureAfter(300.0F), full);
    for (const int step : {1, 100, 254, 255}) {
        test::Frame expected = full;
        fade(expected.data(), static_cast<std::uint8_t>(step), expected.size());
        EXPECT_NE(expected, full);
        EXPECT_EQ(pictureAfter(static_cast<float>(step)), expected) << step;
        EXPECT_EQ(pictureAfter(static_cast<float>(step) + 0.75F), expected) << step;
    }
}

} // namespace
} // namespace lumenfold
