#include "platform/offline/stage.h"

#include <algorithm>
#include <cmath>

namespace lumenfold {

Stage& stage() {
    static Stage theStage;
    return theStage;
}

void Stage::begin(FrameSink* newSink, std::int32_t framesPerSecond) {
    begin(newSink, framesPerSecond, 0.0);
}

void Stage::begin(FrameSink* newSink, std::int32_t framesPerSecond, double startUnits) {
    constexpr double unitsPerSecond = 15.68;
    sink = newSink;
    fps = framesPerSecond;
    number = 0;
    origin = static_cast<std::int64_t>(std::ceil(startUnits / unitsPerSecond * static_cast<double>(frequency)));
    keyPressed = false;
    soundPosition = 0;
    tuneStart = 0;
}

// Rounded up, so that a frame at a whole time unit does not fall just short of it.
std::int64_t Stage::counter() const {
    return origin + (number * frequency + fps - 1) / fps;
}

void Stage::setSize(std::int32_t newWidth, std::int32_t newHeight) {
    width = newWidth;
    height = newHeight;
    pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
}

void Stage::advance() {
    if (sink != nullptr)
        sink->frame(number, pixels.data(), width, height);
    ++number;
    renderSound();
    deliverSyncs();
}

void Stage::play(ModulePlayer* newPlayer) {
    player = newPlayer;
    tuneStart = soundPosition;
}

void Stage::setSyncCallback(MIDASsyncCallback newCallback) {
    callback = newCallback;
    deliverSyncs(); // those of the tune's first sample
}

void Stage::renderSound() {
    const std::int64_t end = number * soundRate / fps;
    const auto frames = static_cast<std::size_t>(end - soundPosition);
    samples.assign(frames * 2, 0.0F);
    if (player != nullptr)
        player->render(samples.data(), frames);
    soundPosition = end;
    if (sink != nullptr)
        sink->sound(samples.data(), frames);
}

void Stage::deliverSyncs() {
    if (player == nullptr || callback == nullptr)
        return;
    SyncCommand command;
    while (player->takeSync(soundPosition - tuneStart, command)) {
        if (sink != nullptr)
            sink->sync(number, command);
        callback(command.value, command.order, command.row);
    }
}

} // namespace lumenfold
