#pragma once

#include "platform/offline/stage.h"
#include "programs/film_options.h"
#include "programs/film_output.h"
#include "programs/progress.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lumenfold::film {

// Takes the frames of the stage, leaves out those that were not asked for, enlarges the rest and hands them to every
// output. Presses the key when the film is long enough or has been interrupted, so that the show ends as it does for
// a viewer.
class Film : public FrameSink {
  public:
    explicit Film(const Options& options);

    void add(std::unique_ptr<Output> output) { outputs.push_back(std::move(output)); }

    // The number of the frame after the last one, for the progress bar; 0: unknown.
    void expectEnd(std::int64_t end) { progress.expectEnd(end); }

    void frame(std::int64_t number, const Pixel32* pixels, std::int32_t width, std::int32_t height) override;
    void sound(const float* samples, std::size_t frames) override;
    void sync(std::int64_t number, const SyncCommand& command) override;

    // The film is over. Throws if it has no frame, and what the outputs throw, after all of them.
    void finish();

    // What lies where, after finish.
    std::vector<std::string> written() const;

  private:
    bool asked(std::int64_t number, std::int32_t part) const;
    void endIfDone(std::int64_t number, std::int32_t part);
    const Pixel32* enlarged(const Pixel32* pixels, std::int32_t width, std::int32_t height);

    const Options& options;
    std::int32_t factor; // of the picture
    std::vector<std::unique_ptr<Output>> outputs;
    std::vector<Pixel32> largePixels;
    std::int64_t made = 0; // frames
    bool taken = false;    // the frame whose sound comes next
    bool reached = false;  // the part that was asked for
    Progress progress;
};

} // namespace lumenfold::film
