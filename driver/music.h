#pragma once

#include "driver/ptc.h"

#include <cstdint>

namespace lumenfold {

// A failed music call: the message has been printed and the music layer closed; the program ends with the status.
struct MusicFailure {
    std::int32_t status;
};

// Starts the music layer and plays the file in a loop, its sync commands going to musicSyncCallback.
// Throws MusicFailure; if only the callback cannot be installed, closes the console and throws DynamicError.
void startMusic(const char* fileName, ptc::Console& console);

// Stops and frees the tune and shuts the music layer down. Throws MusicFailure.
void stopMusic();

// Stops the running tune and starts another one afresh.
void switchMusic(const char* fileName, ptc::Console& console);

// Turns a sync command into its write to syncState: values below 32 count currentPart, six others set a flag.
void musicSyncCallback(std::uint32_t value, std::uint32_t order, std::uint32_t row);

} // namespace lumenfold
