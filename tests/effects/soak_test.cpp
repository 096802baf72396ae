// Every scene for a while at several frame rates, its flags raised and taken back at random, more wildly than any music
// would. Meant for a build with sanitizers; without them it still sees whether a scene writes outside its frame.
// LUMENFOLD_SOAK=600: so many seconds of demo time for each scene instead of two.

#include "show_scenes.h"

#include "render/depth_buffer.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace lumenfold::test {
namespace {

constexpr Pixel32 sentinel = 0xA5C35A3C;
constexpr std::ptrdiff_t margin = 512 * 4; // pixels before and behind the frame that must stay as they are

int secondsOfEach() {
    const char* asked = std::getenv("LUMENFOLD_SOAK");
    return asked != nullptr ? std::atoi(asked) : 2;
}

class RandomFlags {
  public:
    void change() {
        for (SyncByte* flag : {&syncState.syncFlag32, &syncState.syncFlag33, &syncState.syncFlag36,
                               &syncState.syncFlag37, &syncState.syncFlag39, &syncState.syncFlag59}) {
            constexpr unsigned rarity = 60; // frames between two changes
            const auto chance = static_cast<unsigned>(random() % rarity);
            if (chance < 2)
                *flag = static_cast<std::uint8_t>(chance);
        }
    }

  private:
    std::mt19937 random;
};

class Soak : public ShowScenes, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(FramesPerSecond, Soak, testing::Values(30, 60, 144), testing::PrintToStringParamName());

TEST_P(Soak, ScenesStayInsideTheirFrame) {
    constexpr double unitsPerSecond = 15.68;
    load(sceneTable());
    RandomFlags flags;
    Frame memory(pixelCount(frameInfo) + 2 * margin, sentinel);
    const auto frame = memory.begin() + margin;
    double time = 3.0;
    for (const SceneRow& scene : sceneTable()) {
        clearDepthBuffer();
        for (int n = 0; n < secondsOfEach() * GetParam(); ++n) {
            flags.change();
            Session::render(scene, &*frame, static_cast<float>(time));
            time += unitsPerSecond / GetParam();
        }
        const auto kept = [](Pixel32 pixel) { return pixel == sentinel; };
        ASSERT_TRUE(std::all_of(memory.begin(), frame, kept) && std::all_of(memory.end() - margin, memory.end(), kept))
            << scene.name;
    }
}

using SceneRuns = ShowScenes;

// Everything that a scene keeps starts again with loading, so that one process can run the show twice.
TEST_F(SceneRuns, LoadingAgainGivesTheSamePictures) {
    const auto play = [this] {
        load(sceneTable());
        std::vector<Frame> last;
        Frame pixels(pixelCount(frameInfo), 0x00123456);
        for (const SceneRow& scene : sceneTable()) {
            clearDepthBuffer();
            for (int n = 0; n < 24; ++n) {
                syncState.syncFlag37 = n % 5 == 0;
                syncState.syncFlag32 = n == 3 || n == 11;
                syncState.syncFlag39 = n == 8;
                if (n == 13) {
                    syncState.syncFlag36 = 1;
                    syncState.syncFlag59 = 1;
                }
                Session::render(scene, pixels.data(), 40.0F + static_cast<float>(n) * 3.1F);
            }
            syncState.zero();
            last.push_back(pixels);
        }
        return last;
    };
    const auto first = play(), second = play();
    for (std::size_t i = 0; i < first.size(); ++i)
        EXPECT_TRUE(first[i] == second[i]) << sceneTable()[i].name;
}

} // namespace
} // namespace lumenfold::test
