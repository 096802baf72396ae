#include "platform/sdl/pace.h"

#include "platform/player/module_player.h"

namespace lumenfold {

void Pace::begin(SoundTime at) {
    origin = at;
    counted = 0;
}

void Pace::handOut(std::size_t frames) {
    counted += frames;
    origin += std::chrono::seconds(counted / soundRate);
    counted %= soundRate;
}

SoundTime Pace::end() const {
    constexpr std::int64_t second = std::chrono::nanoseconds(std::chrono::seconds(1)).count();
    const auto frames = static_cast<std::int64_t>(counted);
    return origin + std::chrono::ceil<SoundClock::duration>(
                        std::chrono::nanoseconds((frames * second + soundRate - 1) / soundRate));
}

void Pace::limitDelay(SoundTime now) {
    if (now > end() + std::chrono::seconds(1))
        begin(now);
}

} // namespace lumenfold
