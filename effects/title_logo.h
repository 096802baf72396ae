#pragma once

#include "core/pixel.h"

#include <vector>

namespace lumenfold {

// The title across the middle of the frame, which smears sideways into light.
class TitleLogo {
  public:
    static constexpr int width = 512;
    static constexpr int height = 80;

    TitleLogo();

    // Takes the picture, width x height pixels.
    void set(const std::vector<Pixel32>& picture);

    // Adds the title onto width x height pixels.
    void addTo(Pixel32* target) const;

    // Smears the title a little further. The rows form one run: what leaves a row at the right enters the next.
    void blur();

    const Pixel32* pixels() const { return &run[margin]; }

  private:
    static constexpr int margin = 4; // how far the smear reaches; stays black

    std::vector<Pixel32> run; // the title between two margins
};

} // namespace lumenfold
