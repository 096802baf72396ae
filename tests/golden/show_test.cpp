// The whole show, moved on by its own music.

#include "colour_script.h"
#include "golden_file.h"

#include "programs/film_plan.h"
#include "programs/film_show.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace lumenfold::test {
namespace {

class ShowFrames : public film::Output {
  public:
    ShowFrames(const Footage& watched, GoldenFile& goldenFile, ColourScript& colourScript)
        : footage(watched), golden(goldenFile), colours(colourScript) {}

    void frame(const film::Frame& frame) override {
        golden.check(footage, frame, "part " + std::to_string(frame.part));
        part = frame.part;
        colours.frame(frame);
    }
    void sync(std::int64_t, const SyncCommand& command) override { colours.sync(command.value, part); }

  private:
    const Footage& footage;
    GoldenFile& golden;
    ColourScript& colours;
    std::int32_t part = 0;
};

// One key a part: neighbours differ in hue, nothing but part 3 is bright, nothing is dark for long.
void expectColourScript(const std::vector<ColourScript::Phase>& phases) {
    ASSERT_EQ(phases.size(), 13U);
    for (std::size_t i = 0; i < phases.size(); ++i) {
        const ColourScript::Phase& phase = phases[i];
        EXPECT_GE(phase.meanLuma(), phase.name == "part 3" ? 80.0 : 60.0) << phase.name;
        for (std::size_t sector = 0; sector < 6 && i > 0; ++sector)
            EXPECT_LE(std::min(phase.share(sector), phases[i - 1].share(sector)), 0.5)
                << phase.name << " has the hue of the phase before it, " << 60 * sector << " degrees";
        EXPECT_TRUE(phase.name == "part 3" || phase.meanLuma() < 110.0) << phase.name << " is as bright as part 3";
    }
}

// When the parts came, and whether the film tool foresees it.
class PartTimes : public film::Output {
  public:
    explicit PartTimes(std::int32_t framesPerSecond) : fps(framesPerSecond) {}

    void frame(const film::Frame& frame) override {
        if (frame.part == noPart)
            return;
        if (stretches.empty() || stretches.back().part != frame.part)
            stretches.push_back({frame.part, static_cast<double>(frame.number) / fps, 0.0});
        stretches.back().end = static_cast<double>(frame.number + 1) / fps;
    }

    void finish() override {
        const film::ShowPlan plan = film::planShow(fps, film::Options().to);
        EXPECT_TRUE(plan.whole);
        ASSERT_EQ(plan.stretches.size(), stretches.size());
        for (std::size_t i = 0; i < stretches.size(); ++i) {
            EXPECT_EQ(plan.stretches[i].part, stretches[i].part);
            EXPECT_NEAR(plan.stretches[i].begin, stretches[i].begin, film::ShowPlan::exactness);
            EXPECT_NEAR(plan.stretches[i].end, stretches[i].end, film::ShowPlan::exactness);
        }
    }

  private:
    std::int32_t fps;
    std::vector<film::ShowPlan::Stretch> stretches;
};

TEST(Golden, WholeShow) {
    GoldenFile golden("show.golden");
    const film::Options options;
    const Footage show{"show", {}, options.fps};
    film::Film film(options);
    ColourScript colours;
    film.add(std::make_unique<ShowFrames>(show, golden, colours));
    film.add(std::make_unique<PartTimes>(show.fps));
    film::filmShow(film, options);
    film.finish();
    golden.endFilm(show);
    golden.finish();
    expectColourScript(colours.phases());
}

} // namespace
} // namespace lumenfold::test
