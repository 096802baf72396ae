#pragma once

#include "assets/image.h"
#include "assets/lightwave.h"
#include "core/effect.h"
#include "core/random.h"
#include "core/sync_state.h"
#include "effects/frame_size.h"
#include "effects/warp.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <sstream>
#include <vector>

namespace lumenfold::test {

inline constexpr FrameInfo show{512, 384, 1, 22050, 1};

using Frame = std::vector<Pixel32>;

// One frame of a script: demo time and the flags that the music sets before it.
struct Moment {
    float time;
    std::vector<SyncByte*> flags = {};
};

// Runs scenes on the show's own pictures and objects, as the driver would.
class ShowScenes : public testing::Test {
  protected:
    void SetUp() override {
        before = std::filesystem::current_path();
        std::filesystem::current_path(LUMENFOLD_SHOW);
        commentary = std::cout.rdbuf(swallowed.rdbuf());
    }
    void TearDown() override {
        std::cout.rdbuf(commentary);
        textureCache.close();
        std::filesystem::current_path(before);
        syncState.zero();
    }

    // A new run of the program that loads only these scenes.
    void load(const std::vector<Effect>& scenes) {
        textureCache.open();
        syncState.zero();
        resetRand();
        warpOffset = 0;
        sharedDepthBias = 0.0F;
        for (const Effect scene : scenes)
            scene(show, EffectCommand::Init, nullptr, 0.0F);
        allocateDepthBuffer(show.width, show.height);
        swallowed.str({});
    }

    static void draw(Effect scene, Frame& frame, float time) { scene(show, EffectCommand::Render, frame.data(), time); }

    static Mesh& add(Scene& scene, const char* name) {
        Mesh& mesh = *scene.addObject();
        readLightWaveObject(name, mesh, 1);
        return mesh;
    }

    static float single(double value) { return static_cast<float>(value); }

    static Frame blank() { return Frame(pixelCount(show)); }

    static Frame picture(const char* name, int width, int height) {
        Frame pixels(static_cast<std::size_t>(width * height));
        loadImage(name, pixels.data(), width, height, {width, height, 0, 0, 0}, 0);
        return pixels;
    }

    // Runs the shipped scene over the script, then the literal one from the same beginning. Both read and clear the
    // flags, which are the same afterwards, and draw over the frame before.
    template <class Literal>
    void compare(Effect scene, Literal& literal, const std::vector<Moment>& script) {
        std::vector<Frame> shipped;
        std::vector<int> flagsLeft;
        const std::int32_t offset = warpOffset;
        const auto run = [&](auto&& drawFrame, auto&& seen) {
            syncState.zero();
            resetRand();
            warpOffset = offset;
            clearDepthBuffer();
            Frame frame(pixelCount(show), 0x00102030);
            for (std::size_t n = 0; n < script.size(); ++n) {
                for (SyncByte* flag : script[n].flags)
                    *flag = 1;
                drawFrame(frame, script[n].time);
                seen(n, frame,
                     syncState.syncFlag32 | syncState.syncFlag33 << 1 | syncState.syncFlag36 << 2 |
                         syncState.syncFlag37 << 3 | syncState.syncFlag39 << 4 | syncState.syncFlag59 << 5);
            }
        };
        run([&](Frame& frame, float time) { draw(scene, frame, time); },
            [&](std::size_t, const Frame& frame, int flags) {
                shipped.push_back(frame);
                flagsLeft.push_back(flags);
            });
        run([&](Frame& frame, float time) { literal.render(frame, time); },
            [&](std::size_t n, const Frame& frame, int flags) {
                EXPECT_EQ(shipped[n], frame) << "frame " << n << " time " << script[n].time;
                EXPECT_EQ(flagsLeft[n], flags) << "frame " << n;
            });
    }

  private:
    std::filesystem::path before;
    std::streambuf* commentary = nullptr; // of the object reader
    std::ostringstream swallowed;
};

} // namespace lumenfold::test
