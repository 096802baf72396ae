#pragma once

#include "assets/image.h"
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

    static Frame blank() { return Frame(pixelCount(show)); }

  private:
    std::filesystem::path before;
    std::streambuf* commentary = nullptr; // of the object reader
    std::ostringstream swallowed;
};

} // namespace lumenfold::test
