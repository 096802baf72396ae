#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace lumenfold {

inline constexpr std::int32_t soundRate = 48000; // sample frames a second, two channels

// A sync command of the tune and when it is heard.
struct SyncCommand {
    std::int64_t position; // of its row's first sample, in frames from the tune's start
    std::uint32_t value;
    std::uint32_t order;
    std::uint32_t row;
};

// Renders an XM module in an endless loop and finds its sync commands: effect number 0x20, shown as W, whose
// parameter is the value. What comes out depends on the file alone, not on how much is asked for at a time.
// One thread at a time.
class ModulePlayer {
  public:
    // Throws std::runtime_error naming the file and the cause (missing, not an XM module).
    explicit ModulePlayer(const std::string& fileName);

    // The same of a file's bytes; the name is for the messages.
    ModulePlayer(const std::vector<std::uint8_t>& bytes, const std::string& fileName);
    ~ModulePlayer();

    // The next frames as pairs of samples, left first, about -1 to 1.
    void render(float* samples, std::size_t frames);

    // Sample frames handed out so far.
    std::int64_t position() const { return handedOut; }

    // Takes the next sync command whose row starts at or before the position; false if there is none. Commands
    // come in the order in which they are heard; those of one row in channel order.
    bool takeSync(std::int64_t upTo, SyncCommand& command);

    // Length of one pass through the tune, in seconds.
    double duration() const;

  private:
    struct Tune;

    void renderBlock();
    void beginRow(bool moved);

    static constexpr std::size_t blockFrames = 64; // row starts are known at least this exactly

    std::unique_ptr<Tune> tune;
    std::deque<SyncCommand> syncs;
    float block[blockFrames * 2];
    std::size_t blockSize = 0; // frames in block
    std::size_t blockUsed = 0; // frames of it handed out
    std::int64_t rendered = 0; // frames rendered so far, the block included
    std::int64_t handedOut = 0;
    std::int64_t rowEnd = 0; // where the running row is due to end
    std::int32_t order = -1; // the running row
    std::int32_t row = -1;
};

} // namespace lumenfold
