#include "driver/timeline.h"

#include "core/sync_state.h"
#include "driver/clock.h"
#include "driver/music.h"
#include "effects/end_scroller.h"

namespace lumenfold {

namespace {

void waitForMusic(Show& show) {
    while (syncState.currentPart == noPart && !show.keyWaiting())
        idle();
}

// Whether the scene's turn goes on: not even for a frame if the music has counted past its part.
bool lasts(const SceneRow& scene) {
    return scene.part == scrollerPart ? endScrollDone == 0 : syncState.currentPart == scene.part;
}

void play(const SceneRow& scene, Show& show) {
    while (lasts(scene) && !show.keyWaiting())
        show.presentScene(scene);
    Session::leave(scene);
    if (scene.after == AfterLoop::StartEndTune)
        switchMusic("endtune.xm", show.console());
}

} // namespace

void playTimeline(Show& show) {
    while (!show.keyWaiting() && syncState.currentPart != finishedPart) {
        waitForMusic(show);
        for (const SceneRow& scene : show.scenes())
            if (scene.part != noPart)
                play(scene, show);
    }
}

} // namespace lumenfold
