#include "programs/film_show.h"

#include "core/sync_state.h"
#include "driver/clock.h"
#include "driver/midas.h"
#include "driver/music.h"
#include "driver/run.h"

#include <cmath>
#include <stdexcept>
#include <string>

namespace lumenfold::film {

namespace {

const SceneRow& sceneNamed(const std::string& name) {
    for (const SceneRow& row : sceneTable())
        if (name == row.name)
            return row;
    throw UsageError("--scene: no scene is called " + name + "; there are\n" + sceneNames());
}

// Frames of the show if it runs through once: the first tune, then the scroller.
std::int64_t expectedFrames(const Options& options) {
    constexpr std::int64_t scrollerFrames = 10006;
    try {
        const auto seconds = std::min(ModulePlayer("bzzzz.xm").duration(), options.to);
        return static_cast<std::int64_t>(seconds * options.fps) + scrollerFrames;
    } catch (const std::runtime_error&) { // the show itself will say what is wrong with the tune
        return 0;
    }
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

std::string sceneNames() {
    std::string names;
    for (const SceneRow& row : sceneTable())
        names += std::string("  ") + row.name + "\n";
    return names;
}

void filmShow(Film& film, const Options& options) {
    Display display;
    programDisplay = &display;
    film.expect(expectedFrames(options));
    stage().begin(&film, options.fps);
    try {
        run();
    } catch (const MusicFailure&) {
        throw std::runtime_error(std::string("the music failed: ") + MIDASgetErrorMessage(MIDASgetLastError()));
    }
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
    const auto frames = static_cast<std::int64_t>(std::llround(options.seconds * options.fps));
    film.expect(frames);
    Script script(options.syncs);
    while (stage().frameNumber() < frames && !stage().keyWaiting()) {
        script.deliver(static_cast<double>(time.at(readCounter())) - firstTime);
        show.presentScene(scene);
    }
}

} // namespace lumenfold::film
