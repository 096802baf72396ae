#pragma once

#include "core/pixel.h"
#include "platform/player/module_player.h"
#include "programs/film_options.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

// What a film is made into. When an output is made it looks whether it could be written; it writes nothing before the
// first frame. Failures throw std::runtime_error naming the file and the cause.

namespace lumenfold::film {

struct Frame {
    std::int64_t number; // from the show's first frame
    float time;          // demo time
    std::int32_t part;   // 0 while loading, 11 in the end scroller
    const Pixel32* pixels;
    std::int32_t width;
    std::int32_t height;
};

class Output {
  public:
    virtual ~Output() = default;

    virtual void frame(const Frame&) {}
    virtual void sound(const float*, std::size_t) {}       // pairs of samples, of the last frame
    virtual void sync(std::int64_t, const SyncCommand&) {} // number of the first frame that it can change

    // Whether frames come in the picture's own size; else they are enlarged by the factor asked for.
    virtual bool enlargesItself() const { return false; }

    // The film is complete, or ends here, after one frame at least: what was made gets its name. Without this call an
    // output leaves nothing behind.
    virtual void finish() {}

    // After finish: what lies where now, in a line; empty: nothing to say.
    virtual std::string written() const { return {}; }
};

// Numbered PNG pictures in a folder, which is made if need be.
std::unique_ptr<Output> makePictureFolder(const std::string& folder);

// A line for every frame on the standard output's stream.
std::unique_ptr<Output> makeHashLines(std::FILE* stream);

// The sound alone, 16 bits.
std::unique_ptr<Output> makeWaveFile(const std::string& fileName);

// Film and sound through ffmpeg, the container by the file's name, with a title and a chapter for every part.
std::unique_ptr<Output> makeEncodedFilm(const Options& options, const std::string& fileName);

// A picture of labelled moments: of every part, or of a scene alone.
std::unique_ptr<Output> makeContactSheet(const std::string& fileName, std::int32_t fps, bool oneScene);

// The table of parts, printed at the end.
std::unique_ptr<Output> makeTimelineTable(std::FILE* stream, std::int32_t fps);

} // namespace lumenfold::film
