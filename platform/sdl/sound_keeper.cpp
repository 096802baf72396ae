#include "platform/sdl/sound_keeper.h"

#include <algorithm>
#include <cstdio>

namespace lumenfold {

namespace {

// A device may ask for much at once, but not run away from the clock.
constexpr std::chrono::seconds longestBuffer{2};

} // namespace

void SoundKeeper::begin(SoundTime now) {
    const std::lock_guard lock(guard);
    waitUntil = now + firstPatience;
    nextTry = now + retryInterval;
    pace.begin(now);
}

void SoundKeeper::request(float* samples, std::size_t frames, std::int64_t latency, SoundTime now) {
    const std::lock_guard lock(guard);
    asked = true;
    silent = false;
    if (pace.end() < now)
        pace.begin(now);
    if (pace.end() > now + longestBuffer)
        pace.begin(now + longestBuffer);
    pace.handOut(frames);
    playback.fill(samples, frames, latency);
}

void SoundKeeper::look(SoundTime now) {
    const SoundDevice::State state = device.state();
    const bool lost = state == SoundDevice::State::lost;
    const bool silence = advance(now, state);
    if (silence && !announced)
        std::fprintf(stderr, "lumenfold: %s; the tune goes on in silence until there is sound\n",
                     lost ? device.fault().c_str() : "the sound device does not answer");
    if (!silence && announced)
        std::fputs("lumenfold: there is sound again\n", stderr);
    announced = silence;
    if (lost && now >= nextTry) {
        nextTry = now + retryInterval;
        device.open();
    }
}

// Whether the tune goes on in silence now.
bool SoundKeeper::advance(SoundTime now, SoundDevice::State state) {
    const std::lock_guard lock(guard);
    const bool lost = state == SoundDevice::State::lost;
    if (!silent && !asked && !lost && now < waitUntil)
        pace.begin(now);
    silent = silent || now >= pace.end() + (lost ? SoundClock::duration::zero() : patience);
    if (silent)
        playInSilence(now);
    return silent;
}

void SoundKeeper::playInSilence(SoundTime now) {
    float samples[silentFrames * 2];
    pace.limitDelay(now);
    while (pace.end() <= now) {
        pace.handOut(silentFrames);
        playback.fill(samples, silentFrames, 0);
    }
}

} // namespace lumenfold
