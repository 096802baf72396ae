// The whole show, moved on by its own music: the first frame of every part, a moment every eight seconds, and all
// frames together.

#include "golden_file.h"

#include "programs/film_show.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>

namespace lumenfold::test {
namespace {

// FNV-1a over words of two pixels, in four lanes that do not wait for each other: a tenth of the time of the hash of
// the moments, as it is taken of every frame.
class AllFrames {
  public:
    void add(const film::Frame& frame) {
        constexpr std::uint64_t colours = 0x00FFFFFF00FFFFFF;
        std::array<std::uint64_t, 4> words;
        constexpr std::size_t step = sizeof words / sizeof(Pixel32);
        const auto count = static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
        for (std::size_t i = 0; i + step <= count; i += step) {
            std::memcpy(words.data(), frame.pixels + i, sizeof words);
            for (std::size_t lane = 0; lane < lanes.size(); ++lane)
                mix(lanes[lane], words[lane] & colours);
        }
        ++frames;
    }

    std::uint64_t hash() const {
        std::uint64_t all = offset;
        for (const std::uint64_t lane : lanes)
            mix(all, lane);
        return all;
    }

    std::int64_t count() const { return frames; }

  private:
    static constexpr std::uint64_t offset = 14695981039346656037U;

    static void mix(std::uint64_t& hash, std::uint64_t word) {
        constexpr std::uint64_t prime = 1099511628211U;
        hash = (hash ^ word) * prime;
    }

    std::array<std::uint64_t, 4> lanes{offset, offset, offset, offset};
    std::int64_t frames = 0;
};

class ShowMoments : public film::Output {
  public:
    explicit ShowMoments(GoldenFile& goldenFile) : golden(goldenFile) {}

    void frame(const film::Frame& frame) override {
        constexpr std::int64_t interval = 480;
        all.add(frame);
        if (frame.part != part || frame.number % interval == 0)
            golden.check("show " + std::to_string(frame.number) + " part " + std::to_string(frame.part), frame);
        part = frame.part;
    }

    void finish() override { golden.check("show all " + std::to_string(all.count()) + " frames", all.hash()); }

  private:
    GoldenFile& golden;
    AllFrames all;
    std::int32_t part = -1;
};

TEST(Golden, WholeShow) {
    GoldenFile golden("show.txt");
    const film::Options options;
    film::Film film(options);
    film.add(std::make_unique<ShowMoments>(golden));
    film::filmShow(film, options);
    film.finish();
    golden.finish();
}

} // namespace
} // namespace lumenfold::test
