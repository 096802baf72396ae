#pragma once

#include "core/pixel.h"
#include "driver/midas.h"
#include "platform/player/module_player.h"

#include <cstddef>
#include <cstdint>
#include <vector>

// The offline platform: a virtual clock that moves on by one frame with every picture presented. Pictures and sound go
// to a sink, sync commands arrive at the first frame that is shown at or after their sample. Nothing depends on
// the speed of the machine.

namespace lumenfold {

// Receives what is presented. It may throw; the error passes through the driver to the program.
class FrameSink {
  public:
    virtual ~FrameSink() = default;

    // The picture that is shown from number / fps seconds on, row-major without padding; valid during the call.
    virtual void frame(std::int64_t number, const Pixel32* pixels, std::int32_t width, std::int32_t height) = 0;

    // The sound of that frame: pairs of samples, left first, about -1 to 1, soundRate frames a second.
    virtual void sound(const float* samples, std::size_t frames) = 0;

    // A sync command has arrived; number is the first frame that it can change.
    virtual void sync(std::int64_t number, const SyncCommand& command) = 0;
};

class Stage {
  public:
    static constexpr std::int64_t frequency = 10'000'000; // of the virtual counter

    // Begins at frame 0 with the counter at 0. sink: not owned, null throws everything away.
    void begin(FrameSink* sink, std::int32_t framesPerSecond);

    // The same with the counter where demo time, which moves in steps of 0.016, has reached startUnits.
    void begin(FrameSink* sink, std::int32_t framesPerSecond, double startUnits);

    // From now on a key press is waiting.
    void pressKey() { keyPressed = true; }
    bool keyWaiting() const { return keyPressed; }

    std::int64_t frameNumber() const { return number; } // of the frame that comes next
    std::int64_t counter() const;

    // For the console.
    void setSize(std::int32_t newWidth, std::int32_t newHeight);
    std::vector<Pixel32>& picture() { return pixels; }
    void advance(); // shows the picture for one frame

    // For the music layer.
    void play(ModulePlayer* newPlayer);
    void setSyncCallback(MIDASsyncCallback newCallback);

  private:
    void renderSound();
    void deliverSyncs();

    FrameSink* sink = nullptr;
    std::int32_t fps = 60;
    std::int64_t number = 0;
    std::int64_t origin = 0; // of the counter
    bool keyPressed = false;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<Pixel32> pixels;
    std::vector<float> samples;
    std::int64_t soundPosition = 0; // sample frames since frame 0
    ModulePlayer* player = nullptr;
    std::int64_t tuneStart = 0; // soundPosition at the tune's first sample
    MIDASsyncCallback callback = nullptr;
};

Stage& stage();

} // namespace lumenfold
