#include "core/sync_state.h"
#include "core/sync_values.h"
#include "driver/scene_table.h"
#include "platform/offline/stage.h"
#include "programs/film_output.h"

#include <cstdio>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace lumenfold::film {

namespace {

constexpr double unitsPerSecond = 15.68;

class TimelineTable : public Output {
  public:
    TimelineTable(std::FILE* file, std::int32_t framesPerSecond) : stream(file), fps(framesPerSecond) {}

    void frame(const Frame& frame) override {
        if (stretches.empty() || stretches.back().part != frame.part)
            stretches.push_back({frame.part, frame.number, 0, {}});
        ++stretches.back().frames;
        latest = frame.number;
    }

    // A command arrives before the frame that it changes: it belongs to the stretch that is running.
    void sync(std::int64_t number, const SyncCommand& command) override {
        if (!stretches.empty())
            stretches.back().syncs[command.value].push_back(number);
    }

    void finish() override {
        std::fprintf(stream, "part  scene                 from s   length s   frames\n");
        for (const Stretch& stretch : stretches)
            print(stretch);
        std::fprintf(stream, "end at %.3f s by %s, currentPart %d\n", seconds(latest + 1),
                     stage().keyWaiting() ? "a key press" : "itself", static_cast<int>(syncState.currentPart));
        if (std::fflush(stream) != 0 || std::ferror(stream) != 0)
            throw std::runtime_error("the timeline cannot be written");
    }

  private:
    struct Stretch {
        std::int32_t part;
        std::int64_t first;
        std::int64_t frames;
        std::map<std::uint32_t, std::vector<std::int64_t>> syncs; // by value, the frames they reached
    };

    double seconds(std::int64_t number) const { return static_cast<double>(number) / fps; }

    void print(const Stretch& stretch) const {
        const char* name = stretch.part == noPart ? "(loading)" : sceneOfPart(stretch.part).name;
        std::fprintf(stream, "%4d  %-18s %9.3f  %9.3f  %7lld\n", stretch.part, name, seconds(stretch.first),
                     seconds(stretch.frames), static_cast<long long>(stretch.frames));
        for (const auto& [value, numbers] : stretch.syncs)
            printSyncs(stretch, value, numbers);
    }

    // Times in demo-time units from the stretch's first frame, as the scenes count them.
    void printSyncs(const Stretch& stretch, std::uint32_t value, const std::vector<std::int64_t>& numbers) const {
        constexpr std::size_t perLine = 12;
        const std::string kind = value < sync::firstFlag ? "next " : "sync ";
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (i % perLine == 0)
                std::fprintf(stream, "      %s%-3u at lt", i == 0 ? kind.c_str() : "     ", value);
            std::fprintf(stream, " %.1f", seconds(numbers[i] - stretch.first) * unitsPerSecond);
            if (i % perLine == perLine - 1 || i + 1 == numbers.size())
                std::fputc('\n', stream);
        }
    }

    std::FILE* stream;
    std::int32_t fps;
    std::int64_t latest = -1;
    std::vector<Stretch> stretches;
};

} // namespace

std::unique_ptr<Output> makeTimelineTable(std::FILE* stream, std::int32_t fps) {
    return std::make_unique<TimelineTable>(stream, fps);
}

} // namespace lumenfold::film
