// The demo in a browser's page. Arguments: nothing for the whole show, a part's number, or a scene's name with its sync
// commands as VALUE@UNITS,...

#include "core/sync_state.h"
#include "driver/clock.h"
#include "driver/midas.h"
#include "driver/music.h"
#include "driver/run.h"
#include "platform/web/page.h"

#include <cstdlib>
#include <emscripten.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace lumenfold;

struct TimedSync {
    std::uint32_t value;
    double units; // from the scene's first frame
};

std::vector<TimedSync> parseSyncs(const char* text) {
    std::vector<TimedSync> syncs;
    while (*text != 0) {
        char* end = nullptr;
        const auto value = static_cast<std::uint32_t>(std::strtoul(text, &end, 0));
        if (end == text || *end != '@')
            break;
        text = end + 1;
        syncs.push_back({value, std::strtod(text, &end)});
        text = *end == ',' ? end + 1 : end;
    }
    return syncs;
}

// One scene for as long as it is watched.
void playScene(const SceneRow& scene, std::vector<TimedSync> syncs) {
    Display display;
    try {
        Show show(display);
        show.load();
        syncState.currentPart = static_cast<std::uint8_t>(scene.part);
        const DemoTime time(counterFrequency());
        const double begin = time.at(readCounter());
        while (!show.keyWaiting()) {
            const double now = time.at(readCounter()) - begin;
            for (TimedSync& sync : syncs)
                if (sync.units <= now) {
                    musicSyncCallback(sync.value, 0, 0);
                    sync.units = 1e9; // once
                }
            show.presentScene(scene);
        }
    } catch (const DynamicError& error) {
        ptc::report(error);
    }
}

} // namespace

int main(int count, char** arguments) {
    chdir("/show");
    const std::string first = count > 1 ? arguments[1] : "";
    const SceneRow* alone = nullptr;
    for (const SceneRow& scene : sceneTable())
        if (first == scene.name)
            alone = &scene;
    if (alone != nullptr) {
        playScene(*alone, parseSyncs(count > 2 ? arguments[2] : ""));
    } else {
        const int part = std::atoi(first.c_str());
        if (part > 1 && part <= scrollerPart)
            web::winding.part = part;
        if (enterProgram() != 0)
            web::report(MIDASgetErrorMessage(MIDASgetLastError()));
    }
    EM_ASM({ Module.stage.finish(); }); // main has long returned to the page
    return 0;
}
