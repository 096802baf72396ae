#include "programs/film.h"

#include "driver/show.h"

#include <algorithm>
#include <csignal>
#include <cstddef>

namespace lumenfold::film {

namespace {

volatile std::sig_atomic_t interruptSeen = 0;

void noteInterrupt(int) {
    interruptSeen = 1;
}

std::int32_t presentedPart() {
    return presentedFrame.scene != nullptr ? presentedFrame.scene->part : noPart;
}

} // namespace

void catchInterrupts() {
    std::signal(SIGINT, noteInterrupt);
    std::signal(SIGTERM, noteInterrupt);
}

bool interrupted() {
    return interruptSeen != 0;
}

Film::Film(const Options& filmOptions)
    : options(filmOptions), factor(options.object.empty() ? static_cast<std::int32_t>(options.scale) : 1) {}

bool Film::asked(std::int64_t number, std::int32_t part) const {
    const double second = static_cast<double>(number) / options.fps;
    return second >= options.from && second < options.to && (options.part == 0 || options.part == part);
}

void Film::endIfDone(std::int64_t number, std::int32_t part) {
    reached = reached || part == options.part;
    const bool partOver = options.part != 0 && reached && part != options.part;
    const bool timeOver = static_cast<double>(number + 1) / options.fps >= options.to;
    if (partOver || timeOver || interrupted())
        stage().pressKey();
}

const Pixel32* Film::enlarged(const Pixel32* pixels, std::int32_t width, std::int32_t height) {
    if (factor == 1)
        return pixels;
    large.clear();
    for (std::int32_t row = 0; row < height; ++row) {
        const auto rowStart = static_cast<std::ptrdiff_t>(large.size());
        for (std::int32_t x = 0; x < width; ++x)
            large.insert(large.end(), static_cast<std::size_t>(factor), pixels[row * width + x]);
        const std::vector<Pixel32> line(large.begin() + rowStart, large.end());
        for (std::int32_t copy = 1; copy < factor; ++copy)
            large.insert(large.end(), line.begin(), line.end());
    }
    return large.data();
}

void Film::frame(std::int64_t number, const Pixel32* pixels, std::int32_t width, std::int32_t height) {
    const std::int32_t part = presentedPart();
    progress.show(number, part);
    endIfDone(number, part);
    taken = asked(number, part);
    if (!taken)
        return;
    const Pixel32* picture = enlarged(pixels, width, height);
    const Frame frame{number, presentedFrame.time, part, picture, width * factor, height * factor};
    for (const auto& output : outputs)
        output->frame(frame);
}

void Film::sound(const float* samples, std::size_t frames) {
    if (!taken)
        return;
    for (const auto& output : outputs)
        output->sound(samples, frames);
}

void Film::sync(std::int64_t number, const SyncCommand& command) {
    for (const auto& output : outputs)
        output->sync(number, command);
}

void Film::finish() {
    progress.finish();
    for (const auto& output : outputs)
        output->finish();
}

} // namespace lumenfold::film
