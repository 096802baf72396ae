#include "driver/timeline.h"

#include "core/sync_state.h"
#include "driver/clock.h"
#include "driver/music.h"
#include "effects/end_scroller.h"
#include "render/depth_buffer.h"

namespace lumenfold {

namespace {

constexpr std::uint8_t waiting = 0; // values of currentPart that are no part
constexpr std::uint8_t finished = 31;

void waitForMusic(Show& show) {
    while (syncState.currentPart == waiting && !show.keyWaiting())
        idle();
}

// Shows the part for as long as currentPart holds its number: not at all if the music has counted past it.
void playPart(Show& show, std::uint8_t part) {
    const SceneRow& scene = sceneOfPart(part);
    while (syncState.currentPart == part && !show.keyWaiting())
        show.presentScene(scene);
}

// The first parts follow each other whatever the music has counted meanwhile.
void forcePart(std::uint8_t part) {
    clearDepthBuffer();
    syncState.zero();
    syncState.currentPart = part;
}

void playEndScroller(Show& show) {
    const SceneRow& scene = sceneOfPart(scrollerPart);
    while (endScrollDone == 0 && !show.keyWaiting())
        show.presentScene(scene);
}

} // namespace

void playTimeline(Show& show) {
    while (!show.keyWaiting() && syncState.currentPart != finished) {
        waitForMusic(show);
        playPart(show, 1);
        forcePart(2);
        playPart(show, 2);
        forcePart(3);
        playPart(show, 3);
        forcePart(4);
        playPart(show, 4);
        clearDepthBuffer();
        playPart(show, 5);
        clearDepthBuffer();
        playPart(show, 6);
        clearDepthBuffer();
        playPart(show, 7);
        clearDepthBuffer();
        playPart(show, 8);
        clearDepthBuffer();
        playPart(show, 9);
        clearDepthBuffer();
        playPart(show, 10);
        switchMusic("endtune.xm", show.console());
        playEndScroller(show);
    }
}

} // namespace lumenfold
