// Every scene alone, its flags scripted: all phases and what leads from one to the next. 30 frames a second, where the
// show has 60.

#include "golden_file.h"

#include "driver/scene_table.h"
#include "programs/film_show.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace lumenfold::test {
namespace {

constexpr int fps = 30;
constexpr double unitsPerSecond = 15.68;

// What the eye sees from then on.
struct Moment {
    int units; // of demo time from the scene's first frame
    const char* name;
};

struct Script {
    const char* scene;
    std::vector<film::ScriptedSync> syncs;
    std::vector<Moment> moments; // in order of time; the last one ends the film
};

const Script scripts[] = {
    {"tunnelOpening",
     {{39, 0}, {39, 288}, {36, 660}}, // at 0 it starts nothing
     {{40, "fade-in"},
      {150, "straight on"},
      {320, "dissolve"},
      {420, "logo blurred"},
      {620, "fade-out"},
      {690, "hall fades in"},
      {900, "hall"},
      {1020, "cross-fade"},
      {1060, "picture"}}},
    {"spriteRingCube",
     {{32, 40}, {32, 80}, {59, 100}},
     {{20, "ring grows"},
      {41, "pulse"},
      {60, "whole ring"},
      {99, "after two pulses"},
      {101, "cube appears"},
      {115, "half turn"},
      {145, "whole turn"},
      {180, "held picture"}}},
    {"tumblingShowcase",
     {{37, 20}, {59, 80}, {59, 120}, {59, 160}, {59, 200}, {59, 210}, {33, 240}, {33, 330}}, // 210: none is left
     {{0, "begins"},
      {21, "thrown"},
      {60, "strip revealed"},
      {100, "second"},
      {140, "third"},
      {180, "fourth"},
      {220, "fifth"},
      {270, "fade-out"},
      {320, "black"},
      {331, "fade-out again"}}},
    {"twinTunnel",
     {{37, 30}, {59, 100}, {32, 150}, {59, 260}},
     {{20, "twin tunnel"},
      {31, "pulse"},
      {102, "light spot"},
      {125, "light spot closes in"},
      {151, "flash"},
      {220, "ray tunnel"},
      {261, "freeze"},
      {290, "still"}}},
    {"weldingFilm",
     {{59, 45}},
     {{5, "first sparks"},
      {24, "seam"},
      {28, "split"},
      {44, "halves apart"},
      {46, "film"},
      {110, "film rolls"},
      {140, "held picture"}}},
    {"stealthFlight",
     {{37, 50}, {37, 240}},
     {{0, "first picture"}, {51, "shake"}, {150, "flight"}, {241, "shake in fade-out"}, {300, "nearly black"}}},
    {"waveWarp", {}, {{0, "black"}, {80, "fade-in"}, {250, "fade-in ends"}, {350, "wave"}}},
    {"framedFirePole",
     {{37, 30}, {37, 150}},
     {{0, "first frame"}, {31, "nameplate jumps"}, {120, "pane"}, {152, "jumps again"}, {300, "behind"}}},
    // clang-format off
    {"pulsingTube",
     {{37, 30}, {37, 60}, {37, 63}, {37, 201}, {37, 202}, {37, 203}, {37, 204}, {37, 205}, {37, 206}, {37, 207},
      {37, 208}, {37, 209}, {37, 210}, {37, 211}, {37, 212}, {37, 213}}, // more than there are blocks to cut
     {{0, "first frame"}, {20, "tube"}, {31, "lunge"}, {64, "lunge in a lunge"}, {200, "feedback"},
      {214, "no more to cut"}}},
    // clang-format on
    {"metaballFlares", {}, {{0, "first frame"}, {50, "metaballs"}, {150, "apart"}, {260, "together"}}},
    {"endScroller", {}, {{0, "top"}, {100, "rolls"}, {2700, "wraps"}, {5240, "ends"}}},
};

std::int64_t frameAt(const Moment& moment) {
    return static_cast<std::int64_t>(std::ceil(moment.units / unitsPerSecond * fps));
}

class SceneFrames : public film::Output {
  public:
    SceneFrames(const Script& watched, const Footage& filmed, GoldenFile& goldenFile)
        : script(watched), footage(filmed), golden(goldenFile) {}

    void frame(const film::Frame& frame) override {
        std::string moment = "begins";
        for (const Moment& passed : script.moments)
            if (frame.number >= frameAt(passed))
                moment = passed.name;
        golden.check(footage, frame, moment);
    }

  private:
    const Script& script;
    const Footage& footage;
    GoldenFile& golden;
};

Footage footageOf(const Script& script) {
    std::string syncs;
    for (const film::ScriptedSync& sync : script.syncs)
        syncs += (syncs.empty() ? "" : ",") + std::to_string(sync.value) + "@" + std::to_string(sync.units);
    Footage footage{script.scene, {"--scene", script.scene}, fps};
    if (!syncs.empty())
        footage.arguments.insert(footage.arguments.end(), {"--sync", syncs});
    return footage;
}

void filmScript(const Script& script, GoldenFile& golden) {
    film::Options options;
    options.scene = script.scene;
    options.syncs = script.syncs;
    options.fps = fps;
    options.seconds = static_cast<double>(frameAt(script.moments.back()) + 1) / fps;
    const Footage footage = footageOf(script);
    film::Film film(options);
    film.add(std::make_unique<SceneFrames>(script, footage, golden));
    film::filmScene(film, options);
    film.finish();
    golden.endFilm(footage);
}

TEST(Golden, ScenesAlone) {
    GoldenFile golden("scenes.golden");
    for (const SceneRow& row : sceneTable()) {
        if (row.part == noPart) // dormant: no picture
            continue;
        const auto* const script = std::find_if(std::begin(scripts), std::end(scripts), [&](const Script& candidate) {
            return std::string(candidate.scene) == row.name;
        });
        ASSERT_NE(script, std::end(scripts)) << row.name << " has no script";
        filmScript(*script, golden);
    }
    golden.finish();
}

} // namespace
} // namespace lumenfold::test
