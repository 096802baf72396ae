// The show again and again in one process: a key ends it at another frame each time, and no run keeps memory.
// LUMENFOLD_TIMELINES=100: so many runs instead of eight.

#include "programs/film_show.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>

namespace lumenfold::test {
namespace {

int runs() {
    const char* asked = std::getenv("LUMENFOLD_TIMELINES");
    return asked != nullptr ? std::atoi(asked) : 8;
}

// Without those of files, which come and go with the system's needs.
long residentPages() {
    std::ifstream file("/proc/self/statm");
    long pages = 0;
    long resident = 0;
    long ofFiles = 0;
    file >> pages >> resident >> ofFiles;
    return resident - ofFiles;
}

class KeyAt : public film::Output {
  public:
    explicit KeyAt(std::int64_t frameNumber) : pressed(frameNumber) {}

    void frame(const film::Frame& frame) override {
        last = frame.number;
        if (frame.number == pressed)
            stage().pressKey();
    }
    void finish() override {
        constexpr std::int64_t loading = 12; // no key is looked for meanwhile
        EXPECT_LE(last, std::max(pressed, loading)) << "went on after the key";
    }

  private:
    std::int64_t pressed;
    std::int64_t last = -1;
};

TEST(Again, AKeyEndsEveryRunAndNoneKeepsMemory) {
    constexpr int settling = 4; // runs until the allocator has what it needs
    long before = 0;            // the most pages until then, since some runs give more of them back
    long after = 0;
    for (int run = 0; run < runs(); ++run) {
        const film::Options options;
        film::Film film(options);
        film.add(std::make_unique<KeyAt>(run * 3));
        film::filmShow(film, options);
        film.finish();
        long& most = run <= settling ? before : after;
        most = std::max(most, residentPages());
    }
    const long grown = after - before;
    constexpr long pagesOfOneMebibyte = 256;
    EXPECT_LT(grown, pagesOfOneMebibyte);
    RecordProperty("pages", static_cast<int>(grown));
}

} // namespace
} // namespace lumenfold::test
