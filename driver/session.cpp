#include "driver/session.h"

#include "assets/image.h"
#include "core/random.h"
#include "core/sync_state.h"
#include "effects/end_scroller.h"
#include "effects/warp.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

namespace lumenfold {

Session::Session(const SceneTable& scenes) : table(scenes) {
    textureCache.open();
    syncState.zero();
    endScrollDone = 0;
    resetRand();
    warpOffset = 0;
    sharedDepthBias = 0.0F;
}

Session::~Session() {
    textureCache.close();
}

void Session::load(const std::function<void(const SceneRow&)>& before) {
    for (const SceneRow& scene : table) {
        before(scene);
        scene.effect(frameInfo, EffectCommand::Init, nullptr, 0.0F);
    }
    allocateDepthBuffer(frameInfo.width, frameInfo.height);
}

void Session::leave(const SceneRow& scene) {
    if (scene.after == AfterLoop::ClearDepth || scene.after == AfterLoop::ForceNext)
        clearDepthBuffer();
    if (scene.after == AfterLoop::ForceNext) {
        syncState.zero();
        syncState.currentPart = static_cast<std::uint8_t>(scene.part + 1);
    }
}

void Session::release() {
    for (const SceneRow& scene : table)
        if (scene.released)
            scene.effect(frameInfo, EffectCommand::Release, nullptr, 0.0F);
    textureCache.close();
}

} // namespace lumenfold
