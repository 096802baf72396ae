#include "driver/show.h"
#include "programs/film_show.h"
#include "programs/turntable.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace lumenfold::film {

namespace {

Turntable::Subject subjectOf(const Options& options) {
    std::vector<std::string> textures = options.textures;
    textures.resize(2);
    return {options.object, textures[0], textures[1], options.mode, static_cast<float>(options.scale)};
}

std::string describe(const Turntable& turntable) {
    const Turntable::Counts& counts = turntable.counts();
    const Vector3& low = turntable.lowest();
    const Vector3& high = turntable.highest();
    char text[256];
    std::snprintf(text, sizeof text,
                  "%zu vertices, %zu faces (%zu without texture), %zu surfaces, %zu textures\n"
                  "x %g to %g, y %g to %g, z %g to %g\n",
                  counts.vertices, counts.faces, counts.bareFaces, counts.surfaces, counts.textures,
                  static_cast<double>(low[0]), static_cast<double>(high[0]), static_cast<double>(low[1]),
                  static_cast<double>(high[1]), static_cast<double>(low[2]), static_cast<double>(high[2]));
    return text;
}

} // namespace

std::string filmObject(Film& film, const Options& options) {
    const Session session({}); // no scene takes part
    Turntable turntable(subjectOf(options));
    Display display;
    display.console.open("turntable", Turntable::width, Turntable::height, display.format);
    stage().begin(&film, options.fps);
    const auto frames = static_cast<int>(frameCount(options));
    film.expectEnd(frames);
    std::vector<Pixel32> pixels(std::size_t{Turntable::width} * Turntable::height);
    for (int frame = 0; frame < frames && !stage().keyWaiting(); ++frame) {
        turntable.draw(frame, frames, pixels.data());
        display.console.load(pixels.data());
        display.console.update();
    }
    return describe(turntable);
}

} // namespace lumenfold::film
