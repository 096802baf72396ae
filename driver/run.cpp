#include "driver/run.h"

#include "assets/image.h"
#include "core/random.h"
#include "core/sync_state.h"
#include "driver/music.h"
#include "driver/timeline.h"
#include "effects/end_scroller.h"
#include "effects/warp.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

namespace lumenfold {

Display* programDisplay = nullptr;

void resetProgramState() {
    syncState.zero();
    endScrollDone = 0;
    resetRand();
    warpOffset = 0;
    sharedDepthBias = 0.0F;
    forgetMusic();
}

void run() {
    resetProgramState();
    Show show(*programDisplay);
    textureCache.open();
    show.loadScenes();
    startMusic("bzzzz.xm", show.console());
    allocateDepthBuffer(frameInfo.width, frameInfo.height);
    playTimeline(show);
    show.releaseScenes();
    textureCache.close();
    stopMusic();
}

} // namespace lumenfold
