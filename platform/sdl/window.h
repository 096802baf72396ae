#pragma once

#include "core/pixel.h"

#include <SDL.h>
#include <cstdint>
#include <memory>
#include <vector>

namespace lumenfold {

enum class Scaling {
    whole, // enlarged by the largest whole factor that fits
    fill   // enlarged until the height or the width is full, its shape kept
};

// Where the picture lies in a window of the given size, centred. In a window smaller than the picture it shrinks, its
// shape kept.
SDL_Rect placePicture(std::int32_t windowWidth, std::int32_t windowHeight, std::int32_t width, std::int32_t height,
                      Scaling scaling = Scaling::whole);

// Whether a key is one that a viewer presses to end the show: not a modifier, nor a key for volume, brightness, media
// or power.
bool isOrdinaryKey(SDL_Keycode key);

// The window that shows the demo, with what the viewer does to it: Alt+Enter and F11 toggle full screen, everything
// else that asks for the end counts as the key press that the demo waits for. Failures throw DynamicError.
class Window {
  public:
    Window(const char* title, std::int32_t width, std::int32_t height, bool fullscreen);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    // Looks at what the viewer has done. True from the first key press on.
    bool keyPressed();

    // width x height pixels, shown by the next present.
    std::vector<Pixel32>& picture() { return pixels; }

    // Waits until the screen may change again (60 times a second at most), then shows the picture.
    void present();

  private:
    struct Destroy {
        void operator()(SDL_Window* owned) const { SDL_DestroyWindow(owned); }
        void operator()(SDL_Renderer* owned) const { SDL_DestroyRenderer(owned); }
        void operator()(SDL_Texture* owned) const { SDL_DestroyTexture(owned); }
    };

    void makeTexture();
    void handle(const SDL_Event& event);
    void handleKey(const SDL_KeyboardEvent& event);
    void setFullscreen(bool on);
    void place(const SDL_Rect& area);
    void draw();
    void copyPicture(const SDL_Rect& place);
    Scaling scaling() const;
    void waitForTurn();

    std::int32_t width;
    std::int32_t height;
    bool fullscreen = false;
    bool pressed = false;
    bool hidden = false; // minimised or unmapped: nothing is presented
    SDL_Rect windowed{}; // place outside full screen
    std::vector<Pixel32> pixels;
    std::unique_ptr<SDL_Window, Destroy> window;
    std::unique_ptr<SDL_Renderer, Destroy> renderer;
    std::unique_ptr<SDL_Texture, Destroy> texture;
    std::unique_ptr<SDL_Texture, Destroy> enlarged; // for Scaling::fill: the picture by the next whole factor
    std::uint64_t due = 0;                          // counter reading before which the next picture is not shown
};

} // namespace lumenfold
