#include "core/sync_values.h"
#include "driver/scene_table.h"
#include "programs/film_output.h"
#include "programs/pending_file.h"
#include "programs/png_file.h"
#include "programs/tiny_font.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <utility>
#include <vector>

namespace lumenfold::film {

namespace {

constexpr std::int32_t columns = 8;
constexpr std::int32_t gap = 8;
constexpr std::int32_t labelRows = glyphHeight + 4;
constexpr std::int64_t settled = 4; // frames after a command at which its effect is seen
constexpr std::uint64_t dark = 16;  // mean level below which a phase has yet to fade in
constexpr Pixel32 paper = 0x00181818;
constexpr Pixel32 ink = 0x00D0D0D0;

// A picture of half the frame's size with what is known of its moment.
struct Moment {
    std::int64_t number;
    float time;
    std::vector<Pixel32> pixels;
    std::uint32_t sync = 0; // the command that the moment follows, if it was chosen for one
};

// Moments of one stretch of a part, evenly spread over however many frames it turns out to have: when there are too
// many, every other one goes and the distance between them doubles.
struct Stretch {
    explicit Stretch(std::int32_t number) : part(number) {}

    std::int32_t part;
    std::int64_t frames = 0;
    std::int64_t distance = 1;
    std::vector<Moment> moments;
    std::vector<Moment> phases;                   // soon after the first commands of each value
    std::map<std::uint32_t, std::int32_t> heard;  // commands so far, by value
    std::map<std::int64_t, std::uint32_t> wanted; // frames to be kept for a command
};

// Each pixel the mean of two by two.
std::vector<Pixel32> halved(const Frame& frame) {
    std::vector<Pixel32> half;
    for (std::int32_t y = 0; y + 1 < frame.height; y += 2)
        for (std::int32_t x = 0; x + 1 < frame.width; x += 2) {
            const Pixel32* pixel = frame.pixels + y * frame.width + x;
            Pixel32 mean = 0;
            for (const int shift : {0, 8, 16}) {
                const Pixel32 sum = (pixel[0] >> shift & 255) + (pixel[1] >> shift & 255) +
                                    (pixel[frame.width] >> shift & 255) + (pixel[frame.width + 1] >> shift & 255);
                mean |= (sum + 2) / 4 << shift;
            }
            half.push_back(mean);
        }
    return half;
}

bool isDark(const std::vector<Pixel32>& pixels) {
    std::uint64_t sum = 0;
    for (const Pixel32 pixel : pixels)
        sum += (pixel >> 16 & 255) + (pixel >> 8 & 255) + (pixel & 255);
    return sum < 3 * dark * pixels.size();
}

class ContactSheet : public Output {
  public:
    ContactSheet(const std::string& path, std::int32_t framesPerSecond, bool oneScene)
        : target(path), fps(framesPerSecond), shown(oneScene ? 2 * columns : columns) {}

    void frame(const Frame& frame) override {
        if (frame.part == noPart && stretches.empty() && shown == columns)
            return; // the loading bar
        if (stretches.empty() || stretches.back().part != frame.part)
            stretches.emplace_back(frame.part);
        width = frame.width / 2;
        height = frame.height / 2;
        Stretch& stretch = stretches.back();
        if (const auto wanted = stretch.wanted.find(frame.number); wanted != stretch.wanted.end()) {
            std::vector<Pixel32> pixels = halved(frame);
            if (isDark(pixels)) { // a second later, then
                auto later = stretch.wanted.extract(wanted);
                later.key() += fps;
                stretch.wanted.insert(std::move(later));
            } else {
                stretch.phases.push_back({frame.number, frame.time, std::move(pixels), wanted->second});
            }
        }
        if (stretch.frames++ % stretch.distance != 0)
            return;
        stretch.moments.push_back({frame.number, frame.time, halved(frame)});
        if (stretch.moments.size() < 4 * shown)
            return;
        for (std::size_t i = 1; i < 2 * shown; ++i)
            stretch.moments[i] = std::move(stretch.moments[2 * i]);
        stretch.moments.resize(2 * shown);
        stretch.distance *= 2;
    }

    // Phases begin with commands; the hits come by the dozen and one shows them all.
    void sync(std::int64_t number, const SyncCommand& command) override {
        if (stretches.empty() || command.value < sync::firstFlag)
            return;
        Stretch& stretch = stretches.back();
        const std::int32_t most = command.value == sync::hit ? 1 : 2;
        if (++stretch.heard[command.value] <= most && stretch.wanted.size() < columns / 2)
            stretch.wanted[number + settled] = command.value;
    }

    void finish() override {
        for (Stretch& stretch : stretches)
            chooseMoments(stretch);
        std::size_t rows = 0;
        for (const Stretch& stretch : stretches)
            rows += (stretch.moments.size() + columns - 1) / columns;
        pitch = columns * (width + gap) + gap;
        const auto sheetRows = static_cast<std::int32_t>(rows) * (height + labelRows + gap) + gap;
        sheet.assign(static_cast<std::size_t>(pitch) * static_cast<std::size_t>(sheetRows), paper);
        std::int32_t y = gap;
        for (const Stretch& stretch : stretches)
            y = draw(stretch, y);
        writePng(target.place(), sheet.data(), pitch, sheetRows, target.name());
        target.rename();
    }

    std::string written() const override { return target.name() + ": contact sheet, " + sizeInWords(target.name()); }

  private:
    // Leaves the moments that are shown, in order: those of the phases and the others evenly between the ends.
    void chooseMoments(Stretch& stretch) const {
        std::vector<Moment> chosen = std::move(stretch.phases);
        const std::size_t even = std::min(shown - chosen.size(), stretch.moments.size());
        for (std::size_t i = 0; i < even; ++i)
            chosen.push_back(std::move(stretch.moments[(2 * i + 1) * stretch.moments.size() / (2 * even)]));
        std::sort(chosen.begin(), chosen.end(), [](const Moment& a, const Moment& b) { return a.number < b.number; });
        stretch.moments = std::move(chosen);
    }

    // Returns where the next row begins.
    std::int32_t draw(const Stretch& stretch, std::int32_t y) {
        for (std::size_t i = 0; i < stretch.moments.size(); ++i) {
            const auto column = static_cast<std::int32_t>(i % columns);
            if (i > 0 && column == 0)
                y += height + labelRows + gap;
            draw(stretch.part, stretch.moments[i], gap + column * (width + gap), y);
        }
        return y + height + labelRows + gap;
    }

    void draw(std::int32_t part, const Moment& moment, std::int32_t x, std::int32_t y) {
        const double seconds = static_cast<double>(moment.number) / fps;
        char label[64];
        std::snprintf(label, sizeof label, "%d %02d:%05.2f frame %lld t %.0f", part, static_cast<int>(seconds) / 60,
                      seconds - static_cast<int>(seconds) / 60 * 60, static_cast<long long>(moment.number),
                      static_cast<double>(moment.time));
        std::string text = label;
        if (moment.sync != 0)
            text += "  sync " + std::to_string(moment.sync);
        text.resize(std::min(text.size(), static_cast<std::size_t>(width / glyphAdvance)));
        drawText(sheet.data(), pitch, x, y, text, ink);
        for (std::int32_t row = 0; row < height; ++row)
            std::copy_n(moment.pixels.data() + row * width, width, sheet.data() + (y + labelRows + row) * pitch + x);
    }

    PendingFile target;
    std::int32_t fps;
    std::size_t shown; // moments of each stretch
    std::vector<Stretch> stretches;
    std::int32_t width = 0; // of a moment
    std::int32_t height = 0;
    std::int32_t pitch = 0; // of the sheet
    std::vector<Pixel32> sheet;
};

} // namespace

std::unique_ptr<Output> makeContactSheet(const std::string& fileName, std::int32_t fps, bool oneScene) {
    return std::make_unique<ContactSheet>(fileName, fps, oneScene);
}

} // namespace lumenfold::film
