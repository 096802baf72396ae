#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace lumenfold {

// One byte that the music's playback thread writes while the main thread reads and writes it. Relaxed: no order
// between different bytes is relied on.
class SyncByte {
  public:
    operator std::uint8_t() const { return value.load(std::memory_order_relaxed); }
    SyncByte& operator=(std::uint8_t byte) {
        value.store(byte, std::memory_order_relaxed);
        return *this;
    }
    // Whether the byte is set; clears it then.
    bool take() {
        return value.load(std::memory_order_relaxed) != 0 && value.exchange(0, std::memory_order_relaxed) != 0;
    }
    // Adds 1, wrapping from 255 to 0.
    void increment() { value.fetch_add(1, std::memory_order_relaxed); }

  private:
    std::atomic<std::uint8_t> value{0};
};

// The 20 bytes through which the music drives the demo: the number of the running part and flags that are named
// by the sync value that sets them; core/sync_values.h says what the values mean. The playback thread sets flags and
// counts the part; scenes clear the flags.
struct SyncState {
    SyncByte currentPart; // byte 0: 0 waits for the music, then 1 to mainParts, at last finishedPart
    SyncByte syncFlag32;
    SyncByte syncFlag33;
    SyncByte unused3;
    SyncByte syncFlag36;
    SyncByte syncFlag37;
    SyncByte unused6;
    SyncByte syncFlag39;
    std::array<SyncByte, 3> unused8;
    SyncByte syncFlag59; // byte 11
    std::array<SyncByte, 8> unused12;

    // Sets all 20 bytes to 0, the part number included.
    void zero();
};
static_assert(sizeof(SyncState) == 20);

extern SyncState syncState;

} // namespace lumenfold
