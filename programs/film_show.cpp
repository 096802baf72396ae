#include "programs/film_show.h"

#include "core/sync_state.h"
#include "driver/clock.h"
#include "driver/midas.h"
#include "driver/music.h"
#include "driver/run.h"
#include "programs/film_plan.h"
#include "programs/system.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace lumenfold::film {

namespace {

const SceneRow& sceneNamed(const std::string& name) {
    const SceneTable& table = sceneTable();
    return *std::find_if(table.begin(), table.end(), [&](const SceneRow& row) { return name == row.name; });
}

std::string inSeconds(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f seconds", seconds);
    return text;
}

// Refuses what the show would never reach, before a minute has gone into it, and sets the progress bar's end.
void plan(Film& film, const Options& options) {
    const ShowPlan show = planShow(options.fps, options.to);
    double end = show.whole ? show.end : options.to;
    if (show.whole && options.from > show.end + ShowPlan::exactness)
        throw UsageError("--from: the show ends after " + inSeconds(show.end));
    if (options.part != noPart) {
        const auto wanted = std::find_if(show.stretches.begin(), show.stretches.end(),
                                         [&](const auto& stretch) { return stretch.part == options.part; });
        if (wanted == show.stretches.end())
            throw UsageError("--part: " + std::to_string(options.part) + " does not come within " + inSeconds(end));
        if (options.from > wanted->end + ShowPlan::exactness)
            throw UsageError("--from: part " + std::to_string(options.part) + " ends after " + inSeconds(wanted->end));
        end = std::min(end, wanted->end);
    }
    film.expectEnd(std::llround(end * options.fps));
}

// Delivers the scripted values that are due, each once.
class Script {
  public:
    explicit Script(std::vector<ScriptedSync> scripted) : syncs(std::move(scripted)) {}

    void deliver(double units) {
        for (auto sync = syncs.begin(); sync != syncs.end();) {
            if (sync->units > units) {
                ++sync;
                continue;
            }
            musicSyncCallback(sync->value, 0, 0);
            sync = syncs.erase(sync);
        }
    }

  private:
    std::vector<ScriptedSync> syncs;
};

} // namespace

void runOnStage(FrameSink& sink, std::int32_t fps, const SceneTable& scenes) {
    Display display;
    programDisplay = &display;
    stage().begin(&sink, fps);
    try {
        run(scenes);
    } catch (const MusicFailure&) {
        throw std::runtime_error(std::string("the music failed: ") + MIDASgetErrorMessage(MIDASgetLastError()));
    }
}

void filmShow(Film& film, const Options& options) {
    if (options.from > 0.0 || options.part != noPart || terminalColumns() > 0)
        plan(film, options);
    if (!interrupted())
        runOnStage(film, options.fps, sceneTable());
}

void filmScene(Film& film, const Options& options) {
    const SceneRow& scene = sceneNamed(options.scene);
    Display display;
    stage().begin(nullptr, options.fps);
    Show show(display);
    show.load();
    syncState.currentPart = static_cast<std::uint8_t>(scene.part);

    stage().begin(&film, options.fps, options.start);
    const DemoTime time(counterFrequency());
    const double firstTime = static_cast<double>(time.at(readCounter()));
    const std::int64_t frames = frameCount(options);
    film.expectEnd(std::min(frames, static_cast<std::int64_t>(std::ceil(options.to * options.fps))));
    Script script(options.syncs);
    while (stage().frameNumber() < frames && !stage().keyWaiting()) {
        script.deliver(static_cast<double>(time.at(readCounter())) - firstTime);
        show.presentScene(scene);
    }
}

} // namespace lumenfold::film
