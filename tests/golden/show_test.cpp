// The whole show, moved on by its own music.

#include "golden_file.h"

#include "programs/film_show.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace lumenfold::test {
namespace {

class ShowFrames : public film::Output {
  public:
    ShowFrames(const Footage& watched, GoldenFile& goldenFile) : footage(watched), golden(goldenFile) {}

    void frame(const film::Frame& frame) override {
        golden.check(footage, frame, "part " + std::to_string(frame.part));
    }

  private:
    const Footage& footage;
    GoldenFile& golden;
};

TEST(Golden, WholeShow) {
    GoldenFile golden("show.golden");
    const film::Options options;
    const Footage show{"show", {}, options.fps};
    film::Film film(options);
    film.add(std::make_unique<ShowFrames>(show, golden));
    film::filmShow(film, options);
    film.finish();
    golden.endFilm(show);
    golden.finish();
}

} // namespace
} // namespace lumenfold::test
