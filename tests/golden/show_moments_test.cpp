// The whole show, moved on by its own music: the first frame of every part, a moment every eight seconds, and all
// frames together.

#include "all_frames.h"
#include "golden_file.h"

#include "programs/film_show.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace lumenfold::test {
namespace {

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
