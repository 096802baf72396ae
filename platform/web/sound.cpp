#include "platform/web/page.h"

#include <algorithm>
#include <emscripten.h>
#include <vector>

// What page/stage.js does. It asks for samples ahead of time through pageRender, on the main thread.
EM_JS(void, stageOpenSound, (), { Module.stage.openSound(); });
EM_JS(void, stageCloseSound, (), { Module.stage.closeSound(); });
EM_JS(void, stageStartTune, (), { Module.stage.startTune(); });
EM_JS(void, stageStopTune, (), { Module.stage.stopTune(); });
EM_JS(void, stageSync, (int value, double position), { Module.stage.sync(value, position); });
EM_JS(void, stageSkip, (int frames), { Module.stage.skip(frames); });
EM_JS(double, stageHeard, (), { return Module.stage.heard(); });

namespace lumenfold {

namespace web {

namespace {
constexpr std::size_t scratchFrames = 1024;
}

void PageSound::open() {
    stageOpenSound();
}

void PageSound::close() {
    stageCloseSound();
}

void PageSound::start(ModulePlayer& newPlayer) {
    player = &newPlayer;
    origin = 0;
    if (winding.part == 0)
        stageStartTune();
}

void PageSound::stop() {
    player = nullptr;
    stageStopTune();
}

void PageSound::render(float* samples, std::int32_t frames) {
    std::fill_n(samples, frames * 2, 0.0F);
    if (running && player != nullptr)
        player->render(samples, static_cast<std::size_t>(frames));
}

void PageSound::deliverUpTo(std::int64_t position) {
    SyncCommand command;
    while (player != nullptr && callback != nullptr && player->takeSync(position, command)) {
        if (winding.part == 0)
            stageSync(static_cast<int>(command.value), static_cast<double>(command.position - origin));
        callback(command.value, command.order, command.row);
    }
}

void PageSound::deliver() {
    if (player == nullptr)
        return;
    const std::int64_t position = origin + static_cast<std::int64_t>(stageHeard());
    float scratch[scratchFrames * 2];
    while (running && player->position() < position) { // there is no sound, but the commands have to come
        player->render(scratch, scratchFrames);
        stageSkip(scratchFrames);
    }
    deliverUpTo(position);
}

void PageSound::wind(std::int64_t microseconds) {
    std::vector<float> samples(static_cast<std::size_t>(microseconds * soundRate / 1000000) * 2);
    render(samples.data(), static_cast<std::int32_t>(samples.size() / 2));
    if (player == nullptr)
        return;
    origin = player->position();
    deliverUpTo(origin);
}

void PageSound::endWinding() {
    stageStartTune();
}

PageSound& pageSound() {
    static PageSound output;
    return output;
}

} // namespace web

SoundOutput& soundOutput() {
    return web::pageSound();
}

} // namespace lumenfold

// For the page: the place of the next frames, pairs of samples, valid until the next call.
extern "C" EMSCRIPTEN_KEEPALIVE const float* pageRender(std::int32_t frames) {
    static std::vector<float> samples;
    samples.resize(static_cast<std::size_t>(frames) * 2);
    lumenfold::web::pageSound().render(samples.data(), frames);
    return samples.data();
}
