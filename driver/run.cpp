#include "driver/run.h"

#include "driver/music.h"
#include "driver/timeline.h"

namespace lumenfold {

Display* programDisplay = nullptr;

void run(const SceneTable& scenes) {
    Show show(*programDisplay, scenes);
    show.load();
    startMusic("bzzzz.xm", show.console());
    playTimeline(show);
    show.release();
    stopMusic();
}

} // namespace lumenfold
