#include "platform/player/module_player.h"

#include "assets/file.h"
#include "assets/notice.h"
#include "platform/player/xm_layout.h"

#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace lumenfold {

namespace {

struct RowCommands {
    std::vector<std::uint8_t> syncs; // values in channel order
    bool delayed = false;            // a pattern delay (EEx) holds the row for longer than its speed
};

using PatternCommands = std::vector<RowCommands>;

RowCommands readRow(const openmpt::module& file, std::int32_t pattern, std::int32_t row) {
    RowCommands commands;
    for (std::int32_t channel = 0; channel < file.get_num_channels(); ++channel) {
        // The letter, not the effect's number: that differs between the library's versions.
        const std::string effect =
            file.format_pattern_row_channel_command(pattern, row, channel, openmpt::module::command_effect);
        const std::uint8_t parameter =
            file.get_pattern_row_channel_command(pattern, row, channel, openmpt::module::command_parameter);
        if (effect == "W")
            commands.syncs.push_back(parameter);
        commands.delayed = commands.delayed || (effect == "E" && parameter > 0xE0 && parameter < 0xF0);
    }
    return commands;
}

std::vector<PatternCommands> readPatterns(const openmpt::module& file) {
    std::vector<PatternCommands> patterns(static_cast<std::size_t>(file.get_num_patterns()));
    for (std::size_t pattern = 0; pattern < patterns.size(); ++pattern) {
        const auto number = static_cast<std::int32_t>(pattern);
        for (std::int32_t row = 0; row < file.get_pattern_num_rows(number); ++row)
            patterns[pattern].push_back(readRow(file, number, row));
    }
    return patterns;
}

std::vector<std::uint8_t> readTune(const std::string& fileName) {
    errno = 0;
    std::optional<std::vector<std::uint8_t>> bytes = readFile(fileName.c_str());
    if (!bytes)
        throw std::runtime_error(fileName + ": cannot be opened: " + std::strerror(errno));
    return std::move(*bytes);
}

} // namespace

struct ModulePlayer::Tune {
    explicit Tune(const std::vector<std::uint8_t>& bytes) : file(bytes, silence), patterns(readPatterns(file)) {
        file.set_repeat_count(-1);
    }

    const RowCommands& commands(std::int32_t orderNumber, std::int32_t rowNumber) const {
        static const RowCommands none;
        const auto pattern = static_cast<std::size_t>(file.get_order_pattern(orderNumber));
        const auto index = static_cast<std::size_t>(rowNumber);
        return pattern < patterns.size() && index < patterns[pattern].size() ? patterns[pattern][index] : none;
    }

    // Frames that the running row lasts. The library tells tempo and speed together as beats of four rows.
    std::int64_t rowFrames() const {
        constexpr double rowsPerBeat = 4.0;
        const double beats = file.get_current_estimated_bpm();
        return beats > 0.0 ? std::max(std::llround(soundRate * 60.0 / (beats * rowsPerBeat)), 1LL) : soundRate;
    }

    std::ostream silence{nullptr}; // the library's log goes nowhere
    openmpt::module file;
    std::vector<PatternCommands> patterns;
};

ModulePlayer::ModulePlayer(const std::string& fileName) : ModulePlayer(readTune(fileName), fileName) {}

ModulePlayer::ModulePlayer(const std::vector<std::uint8_t>& bytes, const std::string& fileName) : block{} {
    const XmLayout layout = xmLayout(bytes);
    if (!layout.fault.empty())
        throw std::runtime_error(fileName + ": " + layout.fault);
    try {
        tune = std::make_unique<Tune>(bytes);
    } catch (const openmpt::exception& error) {
        throw std::runtime_error(fileName + ": not an XM module: " + error.what());
    }
    if (layout.cutShort)
        notice(fileName, "the file ends early; some of its samples are missing");
    renderBlock();
}

ModulePlayer::~ModulePlayer() = default;

void ModulePlayer::render(float* samples, std::size_t frames) {
    while (frames > 0) {
        const std::size_t count = std::min(frames, blockSize - blockUsed);
        samples = std::copy_n(block + blockUsed * 2, count * 2, samples);
        blockUsed += count;
        handedOut += static_cast<std::int64_t>(count);
        frames -= count;
        if (blockUsed == blockSize)
            renderBlock(); // at once: the sync commands at the next frame are known when it is heard
    }
}

// A block ends where the running row is due to end, so that the next row's first sample begins a block.
void ModulePlayer::renderBlock() {
    const bool rowDue = rendered == rowEnd;
    const std::int64_t untilRowEnd = rowDue ? static_cast<std::int64_t>(blockFrames) : rowEnd - rendered;
    const auto wanted = std::min(blockFrames, static_cast<std::size_t>(untilRowEnd));
    blockSize = tune->file.read_interleaved_stereo(soundRate, wanted, block);
    blockUsed = 0;
    if (blockSize == 0) { // a tune without a single playable row: silence
        std::fill_n(block, wanted * 2, 0.0F);
        blockSize = wanted;
    }
    const bool moved = tune->file.get_current_order() != order || tune->file.get_current_row() != row;
    if (moved || rowDue)
        beginRow(moved);
    rendered += static_cast<std::int64_t>(blockSize);
}

void ModulePlayer::beginRow(bool moved) {
    order = tune->file.get_current_order();
    row = tune->file.get_current_row();
    rowEnd = rendered + tune->rowFrames();
    const RowCommands& commands = tune->commands(order, row);
    if (!moved && commands.delayed)
        return; // still the same row
    for (const std::uint8_t value : commands.syncs)
        syncs.push_back({rendered, value, static_cast<std::uint32_t>(order), static_cast<std::uint32_t>(row)});
}

bool ModulePlayer::takeSync(std::int64_t upTo, SyncCommand& command) {
    if (syncs.empty() || syncs.front().position > upTo)
        return false;
    command = syncs.front();
    syncs.pop_front();
    return true;
}

double ModulePlayer::duration() const {
    return tune->file.get_duration_seconds();
}

} // namespace lumenfold
