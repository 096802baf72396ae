#include "effects/twin_tunnel.h"

#include "assets/prepare.h"
#include "core/trig.h"
#include "effects/freeze.h"
#include "render/ray_field.h"
#include "render/scene.h"
#include "show_scenes.h"
#include "tests/support/pixels.h"

#include <map>

namespace lumenfold {
namespace {

using test::saturatedSum;

class TwinTunnel : public test::ShowScenes {
  protected:
    enum Flags : unsigned { f32 = 1, f37 = 2, f59 = 4 };

    // Frames of a new run, each drawn over the one before; flags are set before the frames named.
    std::vector<test::Frame> run(std::size_t count, const std::map<std::size_t, unsigned>& script) {
        load({twinTunnel});
        std::vector<test::Frame> frames;
        test::Frame frame(pixelCount(test::show), background);
        for (std::size_t n = 0; n < count; ++n) {
            if (const auto flags = script.find(n); flags != script.end()) {
                if (flags->second & f32)
                    syncState.syncFlag32 = 1;
                if (flags->second & f37)
                    syncState.syncFlag37 = 1;
                if (flags->second & f59)
                    syncState.syncFlag59 = 1;
            }
            draw(twinTunnel, frame, 2000.0F + static_cast<float>(n) * 0.26F);
            frames.push_back(frame);
        }
        return frames;
    }

    static constexpr Pixel32 background = 0x00102030;
};

TEST_F(TwinTunnel, SwitchTakesBackFlagsAndPartAndFlashes) {
    load({twinTunnel});
    test::Frame frame = blank();
    draw(twinTunnel, frame, 0.0F);
    syncState.currentPart = 6;
    for (SyncByte* flag : {&syncState.syncFlag32, &syncState.syncFlag33, &syncState.syncFlag59})
        *flag = 1;
    draw(twinTunnel, frame, 1.0F);
    EXPECT_EQ(syncState.currentPart, 4);
    EXPECT_EQ(syncState.syncFlag32 + syncState.syncFlag33 + syncState.syncFlag59, 0);
    EXPECT_EQ(frame[0], 0xDFDFDFDFU); // a bar under the first step of the flash
    EXPECT_EQ(frame[25 * 512 - 1], 0xDFDFDFDFU);
    EXPECT_EQ(frame[359 * 512], 0xDFDFDFDFU);
    syncState.currentPart = 5; // the music's next advance ends the part
    draw(twinTunnel, frame, 2.0F);
    EXPECT_EQ(syncState.currentPart, 5);
}

TEST_F(TwinTunnel, FreezeHoldsTheFrameWithoutItsFlash) {
    const auto moving = run(16, {{0, f32}});
    const auto frozen = run(16, {{0, f32}, {10, f59}});
    EXPECT_EQ(syncState.syncFlag59, 0);
    test::Frame still = blank();
    freezeFrame(still.data(), moving[10].data(), still.size());
    EXPECT_EQ(test::Frame(frozenStill(), frozenStill() + still.size()), still);
    for (std::size_t n = 0; n < 16; ++n)
        EXPECT_EQ(frozen[n], n < 10 ? moving[n] : still) << n;

    const auto both = run(12, {{0, f32}, {9, f32}, {10, f59}});
    EXPECT_EQ(test::Frame(frozenStill(), frozenStill() + still.size()), still); // made before the flash
    for (std::size_t i = 0; i < still.size(); ++i)
        ASSERT_EQ(both[11][i], saturatedSum(still[i], 0x9F9F9F9F)) << i;
}

TEST_F(TwinTunnel, RayTunnelEqualsTheLiteralOne) {
    constexpr std::size_t firstFrames = 5; // turn and scroll of the tunnel begin in the first phase
    const auto frames = run(60, {{firstFrames, f32}, {40, f32}}); // the second only flashes
    const auto greetings = picture("greets2.pcx", 32, 2048);
    RayField field = makeRayField(RayShape::Tunnel, getTexture("cubet4.jpg"));
    Scene scene;
    Mesh& object = *scene.addObject();
    loadObject(object, "blb3.lwo", "cubet5.jpg", nullptr, 17, 2.7F);
    object.spin = {1.8F, 3.3F, -1.3F};
    clearDepthBuffer();
    float bias = 0.0F, turn = 0.0F, start = 0.0F;
    Pixel32 flash = 255;
    for (std::size_t n = 0; n < frames.size(); ++n) {
        if (n >= firstFrames) {
            const float t = 2000.0F + static_cast<float>(n) * 0.26F;
            if (n == firstFrames)
                start = t;
            test::Frame expected = blank();
            drawRayField(field, expected.data(), test::show);
            const auto s = static_cast<std::size_t>((t - start) * 5.0);
            for (std::size_t y = 0; y < 384; ++y)
                for (std::size_t x = 0; x < 512; ++x) {
                    Pixel32& pixel = expected[y * 512 + x];
                    if (y < 25 || y > 358)
                        pixel = 0;
                    if (x >= 479 && x <= 510)
                        pixel = greetings[((y + s) & 2047) * 32 + x - 479];
                }
            drawScene(scene, test::show, expected.data(), bias += 3.0F);
            if (n == 40)
                flash = 255;
            flash = flash > 32 ? flash - 32 : 0;
            for (Pixel32& pixel : expected)
                pixel = saturatedSum(pixel, flash * 0x01010101);
            ASSERT_EQ(frames[n], expected) << "frame " << n;
        }
        field.scrollV += 4;
        turn = static_cast<float>(turn + 0.02);
        field.angles = {-0.3F, -0.6F, static_cast<float>(trig::sin(turn) * 1.7)};
    }
}

} // namespace
} // namespace lumenfold
