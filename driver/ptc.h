#pragma once

#include "core/dynamic_error.h"
#include "core/pixel.h"

#include <cstdint>
#include <memory>
#include <vector>

// The display console: what the demo asks of a screen. A platform implements Console and report(); failures of its
// display surface as DynamicError. Order of one frame: lock, draw, unlock, copy, update.

namespace lumenfold::ptc {

// The layout of one pixel. The demo uses one format only, the one of Pixel32.
struct Format {
    std::int32_t bits = 32;
    std::uint32_t redMask = 0x00FF0000;
    std::uint32_t greenMask = 0x0000FF00;
    std::uint32_t blueMask = 0x000000FF;
    std::uint32_t alphaMask = 0;
};

// The screen or a window.
class Console {
  public:
    Console();
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    // "fullscreen output", "windowed output" and "center nearest", given before open; other texts do nothing.
    bool option(const char* text);

    // Shows width x height pixels under the title. Throws DynamicError with the cause.
    void open(const char* title, std::int32_t width, std::int32_t height, const Format& format, std::int32_t pages = 0);

    // Whether a key press is waiting. The check does not consume it: from the first press on the answer stays true.
    bool key();

    // Takes over a picture of the console's size; it becomes visible with the next update.
    void load(const Pixel32* pixels);
    void update();

    // The picture turns black; a screen shows it at once, since the demo draws nothing until the music leads on.
    void clear();

    void close();

  private:
    struct Screen;
    std::unique_ptr<Screen> screen;
};

// A picture in memory that the demo draws into.
class Surface {
  public:
    Surface(std::int32_t width, std::int32_t height, const Format& format);

    // Rows of width pixels, top row first, valid until unlock.
    Pixel32* lock();
    void unlock();

    // The whole picture goes to the console, which has the same size.
    void copy(Console& console) const;

    void clear();

  private:
    std::vector<Pixel32> pixels;
};

// Brings the error's message to the user.
void report(const DynamicError& error);

} // namespace lumenfold::ptc
