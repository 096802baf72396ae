#include "forge/tune_listen.h"

#include <algorithm>
#include <cmath>

#include "platform/player/module_player.h"

namespace lumenfold::art {
namespace {

constexpr double silenceBelow = 0.001;   // -60 decibels
constexpr std::size_t blockLength = 480; // ten milliseconds

double decibels(double amplitude) {
    return 20.0 * std::log10(std::max(amplitude, 1e-9));
}

// Runs of quiet blocks.
struct Gaps {
    int running = 0;
    int longest = 0;

    void block(double blockPeak) {
        running = blockPeak < silenceBelow ? running + 1 : 0;
        longest = std::max(longest, running);
    }
};

std::vector<SyncEvent> eventsOf(const std::vector<Section>& sections) {
    std::vector<SyncEvent> events;
    int row = 0;
    for (const Section& section : sections) {
        for (const SyncEvent& event : section.events) {
            events.push_back({row + event.row, event.value});
        }
        row += section.rows;
    }
    std::sort(events.begin(), events.end(), [](const SyncEvent& a, const SyncEvent& b) { return a.row < b.row; });
    return events;
}

// Sync commands that are missing, too many, of another value, or more than a hundredth of a second off.
int differences(const HeardTune& tune, const std::vector<Section>& sections) {
    constexpr double tolerance = 0.01;
    const std::vector<SyncEvent> events = eventsOf(sections);
    const std::size_t common = std::min(events.size(), tune.syncs.size());
    int count = static_cast<int>(std::max(events.size(), tune.syncs.size()) - common);
    for (std::size_t i = 0; i < common; ++i) {
        const double planned = secondsAtRow(sections, events[i].row, soundRate);
        const bool same = events[i].value == tune.syncs[i].value;
        count += same && std::fabs(planned - tune.syncs[i].seconds) < tolerance ? 0 : 1;
    }
    return count;
}

void addFileChecks(std::vector<TuneCheck>& checks, const std::string& folder, const std::string& file,
                   const std::vector<Section>& sections, double shortest, double longest) {
    const HeardTune tune = listen(folder + "/" + file);
    checks.push_back({file + ": length", tune.seconds, shortest, longest, "s"});
    checks.push_back(
        {file + ": sync commands off the choreography", static_cast<double>(differences(tune, sections)), 0, 0, ""});
    checks.push_back({file + ": peak", tune.peak, -6.0, -1.0, "dB"});
    checks.push_back({file + ": loudness", tune.loudness, -24.0, -12.0, "dB"});
    checks.push_back({file + ": longest gap", tune.longestGap, 0.0, 2.0, "s"});
    checks.push_back({file + ": offset", std::fabs(tune.offset), 0.0, 0.002, ""});
}

} // namespace

HeardTune listen(const std::string& path) {
    ModulePlayer player(path);
    const auto total = static_cast<std::int64_t>(player.duration() * soundRate);
    HeardTune heard;
    heard.seconds = player.duration();
    Gaps gaps;
    double largest = 0.0;
    double energy = 0.0;
    double sum = 0.0;
    std::vector<float> block(blockLength * 2);
    while (player.position() < total) {
        const auto frames = static_cast<std::size_t>(
            std::min<std::int64_t>(static_cast<std::int64_t>(blockLength), total - player.position()));
        player.render(block.data(), frames);
        double blockPeak = 0.0;
        for (std::size_t i = 0; i < frames * 2; ++i) {
            const double value = block[i];
            blockPeak = std::max(blockPeak, std::fabs(value));
            energy += value * value;
            sum += value;
        }
        largest = std::max(largest, blockPeak);
        gaps.block(blockPeak);
    }
    const double samples = 2.0 * static_cast<double>(std::max<std::int64_t>(total, 1));
    heard.peak = decibels(largest);
    heard.loudness = decibels(std::sqrt(energy / samples));
    heard.longestGap = gaps.longest * static_cast<double>(blockLength) / soundRate;
    heard.offset = sum / samples;
    SyncCommand command{};
    while (player.takeSync(total - 1, command)) {
        heard.syncs.push_back({static_cast<double>(command.position) / soundRate, static_cast<int>(command.value)});
    }
    return heard;
}

std::vector<TuneCheck> checkTunes(const std::string& folder) {
    std::vector<TuneCheck> checks = checkTimeline(soundRate);
    addFileChecks(checks, folder, "bzzzz.xm", demoSections(), 335.0, 355.0);
    addFileChecks(checks, folder, "endtune.xm", endSections(), 165.0, 169.0);
    return checks;
}

} // namespace lumenfold::art
