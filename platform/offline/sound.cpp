#include "platform/offline/stage.h"
#include "platform/player/sound_output.h"

namespace lumenfold {

namespace {

class StageSound : public SoundOutput {
  public:
    void open() override {}
    void close() override {}
    void run() override {}
    void pause() override {}
    void start(ModulePlayer& player) override { stage().play(&player); }
    void stop() override { stage().play(nullptr); }
    void setSyncCallback(MIDASsyncCallback callback) override { stage().setSyncCallback(callback); }
};

} // namespace

SoundOutput& soundOutput() {
    static StageSound output;
    return output;
}

} // namespace lumenfold
