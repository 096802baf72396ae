#include "programs/film_plan.h"

#include "driver/scene_table.h"
#include "driver/show.h"
#include "effects/end_scroller.h"
#include "platform/offline/stage.h"
#include "programs/film_show.h"
#include "programs/system.h"

#include <cmath>

namespace lumenfold::film {

namespace {

constexpr std::int32_t planRate = 10;    // frames a second of the plan
constexpr double scrollerFrames = 10006; // of the real scroller, whatever the rate

std::int64_t scrollerLength = 0; // in frames of the plan
std::int64_t scrolled = 0;

void drawNothing(FrameInfo, EffectCommand, Pixel32*, float) {}

void scrollNothing(FrameInfo, EffectCommand command, Pixel32*, float) {
    if (command == EffectCommand::Init) {
        scrolled = 0;
        endScrollDone = 0;
    } else if (command == EffectCommand::Render && ++scrolled >= scrollerLength) {
        endScrollDone = 1;
    }
}

// Loading takes as many frames at any rate; everything later keeps its time.
class Planner : public FrameSink {
  public:
    Planner(std::int32_t framesPerSecond, double last) : fps(framesPerSecond), until(last) {}

    void frame(std::int64_t, const Pixel32*, std::int32_t, std::int32_t) override {
        const std::int32_t part = presentedFrame.scene != nullptr ? presentedFrame.scene->part : noPart;
        plan.end += part == noPart ? 1.0 / fps : 1.0 / planRate;
        if (part != noPart) {
            if (plan.stretches.empty() || plan.stretches.back().part != part)
                plan.stretches.push_back({part, plan.end - 1.0 / planRate, 0.0});
            plan.stretches.back().end = plan.end;
        }
        if (plan.end >= until || interrupted()) {
            plan.whole = false;
            stage().pressKey();
        }
    }
    void sound(const float*, std::size_t) override {}
    void sync(std::int64_t, const SyncCommand&) override {}

    ShowPlan plan{{}, 0.0, true};

  private:
    std::int32_t fps;
    double until;
};

} // namespace

ShowPlan planShow(std::int32_t fps, double until) {
    SceneTable scenes = sceneTable();
    for (SceneRow& row : scenes)
        row.effect = row.part == scrollerPart ? scrollNothing : drawNothing;
    scrollerLength = std::llround(scrollerFrames / fps * planRate);
    Planner planner(fps, until);
    runOnStage(planner, planRate, scenes);
    return planner.plan;
}

} // namespace lumenfold::film
