#pragma once

#include "core/sync_state.h"
#include "driver/session.h"
#include "effects/frame_size.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <sstream>
#include <vector>

namespace lumenfold::test {

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
        session.reset();
        std::filesystem::current_path(before);
        syncState.zero();
    }

    // A new run of the program that loads only these scenes, in their order.
    void load(const std::vector<Effect>& scenes) {
        SceneTable table;
        for (const Effect scene : scenes)
            table.push_back(rowOf(scene));
        load(table);
    }
    void load(const SceneTable& table) {
        session.reset();
        session.emplace(table).load();
        swallowed.str({});
    }

    static void draw(Effect scene, Frame& frame, float time) { Session::render(rowOf(scene), frame.data(), time); }

    static Frame blank() { return Frame(pixelCount(frameInfo)); }

  private:
    static const SceneRow& rowOf(Effect scene) {
        const SceneTable& table = sceneTable();
        return *std::find_if(table.begin(), table.end(), [=](const SceneRow& row) { return row.effect == scene; });
    }

    std::optional<Session> session;
    std::filesystem::path before;
    std::streambuf* commentary = nullptr; // of the object reader
    std::ostringstream swallowed;
};

} // namespace lumenfold::test
