#pragma once

#include "driver/midas.h"
#include "platform/player/module_player.h"

namespace lumenfold {

// Where the music layer's sound goes: what each platform adds to the layer. One tune plays at a time.
class SoundOutput {
  public:
    virtual ~SoundOutput() = default;

    // Makes ready for a tune; silent at first. Throws std::runtime_error with the cause.
    virtual void open() = 0;
    virtual void close() = 0;

    // From run() to pause() the tune plays; otherwise there is silence.
    virtual void run() = 0;
    virtual void pause() = 0;

    // The player is not owned, and not touched any more once stop() has returned.
    virtual void start(ModulePlayer& player) = 0;
    virtual void stop() = 0;

    // Called with each sync command from now on; null: nothing is. The one before is not called any more once this
    // has returned.
    virtual void setSyncCallback(MIDASsyncCallback callback) = 0;
};

SoundOutput& soundOutput();

} // namespace lumenfold
