#include "effects/dormant.h"

#include "effects/frame_size.h"
#include "effects/picture.h"

// No part of the timeline shows these scenes. They load with the others all the same: a missing picture of theirs ends
// the demo while it loads.

namespace lumenfold {

namespace {

struct SparkPlaneState {
    std::vector<Pixel32> spark; // 16 x 16
    std::vector<Pixel32> plane; // 256 x 256, its own copy and not the cached texture of the same name
} sparkPlane;

struct FlarePictureState {
    std::vector<Pixel32> background; // 512 x 384
    std::vector<Pixel32> flare;      // 32 x 32
    std::vector<Pixel32> frame;      // the frame's size, never used
} flarePicture;

} // namespace

void dormantSparkPlane(FrameInfo, EffectCommand command, Pixel32*, float) {
    if (command != EffectCommand::Init)
        return;
    sparkPlane.spark = loadPicture("bfs0.pcx", 16, 16);
    sparkPlane.plane = loadPicture("fdgrid.jpg", 256, 256);
}

void dormantFlarePicture(FrameInfo info, EffectCommand command, Pixel32*, float) {
    if (command != EffectCommand::Init)
        return;
    flarePicture.background = loadPicture("svampbak.jpg", info.width, info.height);
    flarePicture.flare = loadPicture("petrolflare.jpg", 32, 32);
    flarePicture.frame.assign(pixelCount(info), 0);
}

} // namespace lumenfold
