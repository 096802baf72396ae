#include "programs/film.h"

#include "driver/show.h"
#include "programs/system.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <stdexcept>

namespace lumenfold::film {

namespace {

std::int32_t presentedPart() {
    return presentedFrame.scene != nullptr ? presentedFrame.scene->part : noPart;
}

} // namespace

Film::Film(const Options& filmOptions) : options(filmOptions), factor(options.factor()) {}

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
    largePixels.clear();
    for (std::int32_t row = 0; row < height; ++row) {
        const auto rowStart = static_cast<std::ptrdiff_t>(largePixels.size());
        for (std::int32_t x = 0; x < width; ++x)
            largePixels.insert(largePixels.end(), static_cast<std::size_t>(factor), pixels[row * width + x]);
        const std::vector<Pixel32> line(largePixels.begin() + rowStart, largePixels.end());
        for (std::int32_t copy = 1; copy < factor; ++copy)
            largePixels.insert(largePixels.end(), line.begin(), line.end());
    }
    return largePixels.data();
}

void Film::frame(std::int64_t number, const Pixel32* pixels, std::int32_t width, std::int32_t height) {
    const std::int32_t part = presentedPart();
    progress.show(number, part);
    endIfDone(number, part);
    taken = asked(number, part);
    if (!taken)
        return;
    ++made;
    const Frame small{number, presentedFrame.time, part, pixels, width, height};
    const bool needLarge = std::any_of(outputs.begin(), outputs.end(), [](auto& o) { return !o->enlargesItself(); });
    const Frame large{number,         presentedFrame.time, part, needLarge ? enlarged(pixels, width, height) : pixels,
                      width * factor, height * factor};
    for (const auto& output : outputs)
        output->frame(output->enlargesItself() ? small : large);
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
    if (made == 0)
        throw std::runtime_error(interrupted() ? "interrupted before the first frame that was asked for"
                                               : "no frame was made: the range that was asked for holds none");
    std::exception_ptr failure;
    for (const auto& output : outputs) {
        try {
            output->finish();
        } catch (...) { // the other outputs are as good as they were
            if (!failure)
                failure = std::current_exception();
        }
    }
    if (failure)
        std::rethrow_exception(failure);
}

std::vector<std::string> Film::written() const {
    std::vector<std::string> lines;
    for (const auto& output : outputs)
        if (std::string line = output->written(); !line.empty())
            lines.push_back(std::move(line));
    return lines;
}

} // namespace lumenfold::film
