#pragma once

#include "programs/film_output.h"

#include <array>
#include <string>
#include <vector>

namespace lumenfold::test {

// The colours of each phase of the show: how bright it is, and how its chroma spreads over six sectors of hue.
class ColourScript {
  public:
    struct Phase {
        std::string name;
        std::array<double, 6> chroma{}; // 60 degrees each, the first around red
        double luma = 0.0;              // sum of frame means, 0 to 255
        int frames = 0;

        double meanLuma() const { return frames == 0 ? 0.0 : luma / frames; }
        double share(std::size_t sector) const;
    };

    // A command of the music may begin another phase of the part.
    void sync(std::uint32_t value, std::int32_t part);
    void frame(const film::Frame& frame);

    const std::vector<Phase>& phases() const { return all; }

  private:
    std::vector<Phase> all;
    std::int32_t part = 0;
    bool second = false; // the part's second phase has begun
};

} // namespace lumenfold::test
