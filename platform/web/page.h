#pragma once

#include "platform/player/sound_output.h"

#include <cstdint>

namespace lumenfold::web {

// Runs the show fast and unseen up to a part: time moves on by a tenth of a second with every picture, and the tune is
// rendered for nobody.
struct Winding {
    std::int32_t part = 0;  // being wound to; 0: the show runs at its own speed
    std::int64_t clock = 0; // microseconds so far
};
extern Winding winding;

// The tune with the browser's clock: how far it is heard, and the sync commands that are due.
class PageSound : public SoundOutput {
  public:
    void open() override;
    void close() override;
    void run() override { running = true; }
    void pause() override { running = false; }
    void start(ModulePlayer& newPlayer) override;
    void stop() override;
    void setSyncCallback(MIDASsyncCallback newCallback) override { callback = newCallback; }

    // Calls back with what has been heard up to now. Between two pictures, since the demo has one thread.
    void deliver();

    // The next frames for the loudspeakers, silence where no tune plays.
    void render(float* samples, std::int32_t frames);

    // Renders a stretch for nobody, with its commands; and the end of it, from where the tune is heard.
    void wind(std::int64_t microseconds);
    void endWinding();

  private:
    void deliverUpTo(std::int64_t position);

    bool running = false;
    ModulePlayer* player = nullptr;
    MIDASsyncCallback callback = nullptr;
    std::int64_t origin = 0; // of the tune that plays: frames that were wound
};

PageSound& pageSound();

// Tells the page why the show ends.
void report(const char* text);

} // namespace lumenfold::web
