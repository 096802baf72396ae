#include "forge/tune_listen.h"

#include "forge/mix.h"

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

// How many commands are not the accent of their moment: the steepest rise more than ten milliseconds from the row, or a
// row within three, or one of the four neighbouring beats, as strong, as far as these carry no command of their own.
struct Accents {
    int late = 0;
    int hidden = 0; // by a row beside it
    int behind = 0; // a neighbouring beat
};

Accents accentsOf(const forge::Mix& mix, const std::vector<Section>& sections) {
    const forge::Flux flux = forge::fluxOf(mix);
    int rows = 0;
    for (const Section& section : sections)
        rows += section.rows;
    std::vector<bool> commanded(static_cast<std::size_t>(rows), false);
    const std::vector<SyncEvent> events = eventsOf(sections);
    for (const SyncEvent& event : events)
        commanded[static_cast<std::size_t>(event.row)] = true;
    const auto seconds = [&](int row) { return secondsAtRow(sections, row, forge::mixRate); };
    const auto strength = [&](int row) { return forge::accent(flux, seconds(row)); };
    const auto beaten = [&](int row, std::initializer_list<int> neighbours) {
        return std::any_of(neighbours.begin(), neighbours.end(), [&](int offset) {
            const int other = row + offset;
            return other >= 0 && other < rows && !commanded[static_cast<std::size_t>(other)] &&
                   strength(other) >= strength(row);
        });
    };
    Accents accents;
    for (const SyncEvent& event : events) {
        const double at = seconds(event.row);
        accents.late += std::fabs(flux.largest(at - 0.05, at + 0.05).seconds - at) > 0.0125 ? 1 : 0;
        accents.hidden += beaten(event.row, {-3, -2, -1, 1, 2, 3}) ? 1 : 0;
        accents.behind += beaten(event.row, {-8, -4, 4, 8}) ? 1 : 0;
    }
    return accents;
}

// The balance of a whole tune.
void addMixChecks(std::vector<TuneCheck>& checks, const std::string& folder, const std::string& file,
                  const std::vector<Section>& sections, int mostHidden, int mostBehind) {
    const forge::Mix mix = forge::playModule(folder + "/" + file);
    const Accents accents = accentsOf(mix, sections);
    checks.push_back({file + ": loudness", forge::loudness(mix), -17.5, -14.0, "LUFS"});
    checks.push_back({file + ": true peak", forge::truePeak(mix), -6.0, -1.0, "dB"});
    checks.push_back({file + ": correlation", forge::correlation(mix), 0.85, 1.0, ""});
    checks.push_back({file + ": loss in mono", forge::monoLoss(mix), -0.4, 0.4, "LU"});
    checks.push_back({file + ": side to mid, 150 to 500 Hz", forge::sideToMid(mix, 150, 500), -60.0, -10.0, "dB"});
    checks.push_back({file + ": side to mid, below 150 Hz", forge::sideToMid(mix, 20, 150), -200.0, -20.0, "dB"});
    checks.push_back({file + ": commands whose accent is late", double(accents.late), 0, 0, ""});
    checks.push_back({file + ": commands under a row beside them", double(accents.hidden), 0, double(mostHidden), ""});
    checks.push_back(
        {file + ": commands under a neighbouring beat", double(accents.behind), 0, double(mostBehind), ""});
}

// Level against the sections before it, in LU: a drop must not fall, the finale stands above everything.
void addDynamicsChecks(std::vector<TuneCheck>& checks, const std::string& folder) {
    const forge::Mix mix = forge::playModule(folder + "/bzzzz.xm");
    const auto& sections = demoSections();
    const auto level = [&](const std::string& name) {
        const int first = firstRow(sections, name);
        const int end = first + sectionNamed(sections, name).rows;
        return forge::loudness(forge::excerpt(mix, secondsAtRow(sections, first, forge::mixRate),
                                              secondsAtRow(sections, end, forge::mixRate)));
    };
    double loudest = -70.0;
    for (const Section& section : sections)
        if (section.name != "10 finale")
            loudest = std::max(loudest, level(section.name));
    checks.push_back({"finale above every other section", level("10 finale") - loudest, 1.0, 6.0, "LU"});
    checks.push_back({"hall above the logo", level("1 hall") - level("1 logo"), 1.5, 8.0, "LU"});
    checks.push_back(
        {"ray tunnel above the twin tunnels", level("4 ray tunnel") - level("4 twin tunnels"), 1.0, 6.0, "LU"});
    checks.push_back({"tube above the pane", level("9 tube") - level("8 pane"), 1.0, 6.0, "LU"});
}

void addFileChecks(std::vector<TuneCheck>& checks, const std::string& folder, const std::string& file,
                   const std::vector<Section>& sections, double shortest, double longest) {
    const HeardTune tune = listen(folder + "/" + file);
    checks.push_back({file + ": length", tune.seconds, shortest, longest, "s"});
    checks.push_back(
        {file + ": sync commands off the choreography", static_cast<double>(differences(tune, sections)), 0, 0, ""});
    checks.push_back({file + ": peak", tune.peak, -6.0, -1.0, "dB"});
    checks.push_back({file + ": level", tune.loudness, -24.0, -12.0, "dB"});
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
    addFileChecks(checks, folder, "bzzzz.xm", demoSections(), 328.0, 355.0);
    addFileChecks(checks, folder, "endtune.xm", endSections(), 165.0, 169.0);
    addMixChecks(checks, folder, "bzzzz.xm", demoSections(), 3, 20);
    addMixChecks(checks, folder, "endtune.xm", endSections(), 3, 2);
    addDynamicsChecks(checks, folder);
    return checks;
}

} // namespace lumenfold::art
