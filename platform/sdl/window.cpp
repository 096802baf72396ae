#include "platform/sdl/window.h"

#include "core/dynamic_error.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

namespace lumenfold {

namespace {

constexpr std::uint64_t picturesPerSecond = 60; // the show's motion is partly counted in frames and made for this rate
constexpr std::uint64_t turnsPerSecondHidden = 10; // nobody looks; demo time, tune and commands go on

[[noreturn]] void failDisplay(const char* what) {
    throw DynamicError(std::string("display: ") + what + ": " + SDL_GetError());
}

// Where there is no screen, SDL may take a driver that draws into memory alone and so play the show for nobody. Whoever
// names such a driver gets it.
bool reachesScreen() {
    const std::string driver = SDL_GetCurrentVideoDriver();
    return (driver != "offscreen" && driver != "dummy" && driver != "evdev") ||
           std::getenv("SDL_VIDEODRIVER") != nullptr;
}

// The largest whole factor that leaves room for the desktop around the window.
std::int32_t firstFactor(std::int32_t width, std::int32_t height) {
    SDL_Rect desktop{0, 0, width, height};
    SDL_GetDisplayUsableBounds(0, &desktop);
    return std::max(std::min(desktop.w * 8 / 10 / width, desktop.h * 8 / 10 / height), 1);
}

// Without a window manager there are no borders, and nobody else brings a window to the screen's size.
bool decorated(SDL_Window* window) {
    int top = 0;
    return SDL_GetWindowBordersSize(window, &top, nullptr, nullptr, nullptr) == 0 && top > 0;
}

SDL_Rect screenOf(SDL_Window* window) {
    SDL_Rect screen{};
    SDL_GetDisplayBounds(std::max(SDL_GetWindowDisplayIndex(window), 0), &screen);
    return screen;
}

} // namespace

SDL_Rect placePicture(std::int32_t windowWidth, std::int32_t windowHeight, std::int32_t width, std::int32_t height,
                      Scaling scaling) {
    const std::int32_t factor = std::min(windowWidth / width, windowHeight / height);
    SDL_Rect place{0, 0, width * factor, height * factor};
    if (factor == 0 || scaling == Scaling::fill) {
        const double fit =
            std::min(static_cast<double>(windowWidth) / width, static_cast<double>(windowHeight) / height);
        place.w = static_cast<int>(width * fit);
        place.h = static_cast<int>(height * fit);
    }
    place.x = (windowWidth - place.w) / 2;
    place.y = (windowHeight - place.h) / 2;
    return place;
}

bool isOrdinaryKey(SDL_Keycode key) {
    switch (key) {
    case SDLK_LSHIFT:
    case SDLK_RSHIFT:
    case SDLK_LCTRL:
    case SDLK_RCTRL:
    case SDLK_LALT:
    case SDLK_RALT:
    case SDLK_LGUI:
    case SDLK_RGUI:
    case SDLK_MODE:
    case SDLK_CAPSLOCK:
    case SDLK_NUMLOCKCLEAR:
    case SDLK_SCROLLLOCK:
    case SDLK_PRINTSCREEN:
    case SDLK_POWER:
    case SDLK_MUTE:
    case SDLK_VOLUMEUP:
    case SDLK_VOLUMEDOWN:
        return false;
    default:
        break;
    }
    // X11 reports a laptop's keys for microphone, touchpad and tools as these
    if (key >= SDLK_F13 && key <= SDLK_F24)
        return false;
    // the consumer keys of the USB usage tables: media, browser, brightness, keyboard light, eject, sleep, applications
    const bool consumer = key >= SDLK_AUDIONEXT && key <= SDL_SCANCODE_TO_KEYCODE(SDL_SCANCODE_ENDCALL);
    return !consumer;
}

namespace {

// What stands for the demo in a task bar: two folded sheets on a dark ground, as in packaging/lumenfold.svg.
void setIcon(SDL_Window* window) {
    constexpr int side = 64;
    SDL_Surface* const icon = SDL_CreateRGBSurfaceWithFormat(0, side, side, 32, SDL_PIXELFORMAT_ARGB8888);
    if (icon == nullptr)
        return;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const int crease = 43 - x / 11; // the row of the fold
            const bool cold = y > 12 - x / 12 && y < crease && x > 8 && 3 * x < 150 + y;
            const bool warm = y > crease + 1 && y < 57 && x > 8 + (y - crease) * 2 && x < 56 - (y - crease);
            Uint32 colour = 0xFF05070D;
            if (cold)
                colour = 0xFF000000U | static_cast<Uint32>(0x2F + 2 * y) << 16 | 0xB7U << 8 | 0xA8U;
            if (warm)
                colour = 0xFFFF8A1E;
            if (y == crease || y == crease + 1)
                colour = 0xFFEAF6FF;
            static_cast<Uint32*>(icon->pixels)[y * icon->pitch / 4 + x] = colour;
        }
    SDL_SetWindowIcon(window, icon);
    SDL_FreeSurface(icon);
}

} // namespace

Window::Window(const char* title, std::int32_t pictureWidth, std::int32_t pictureHeight, bool startFullscreen)
    : width(pictureWidth), height(pictureHeight),
      pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    SDL_SetHint(SDL_HINT_APP_NAME, "lumenfold"); // as screen savers and sound mixers name it
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "nearest");
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
    SDL_SetMainReady(); // main is our own
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
        failDisplay("no screen");
    if (!reachesScreen()) {
        SDL_SetError("neither DISPLAY nor WAYLAND_DISPLAY leads to one");
        failDisplay("no screen");
    }
    const std::int32_t factor = firstFactor(width, height);
    const SDL_Rect centred{SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width * factor, height * factor};
    SDL_Rect first = centred;
    if (startFullscreen)
        SDL_GetDisplayBounds(0, &first);
    window.reset(SDL_CreateWindow(title, first.x, first.y, first.w, first.h,
                                  SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI));
    if (window == nullptr)
        failDisplay("no window");
    setIcon(window.get());
    SDL_SetWindowMinimumSize(window.get(), width, height);
    if (startFullscreen)
        setFullscreen(true);
    windowed = centred;
    SDL_ShowWindow(window.get());
    renderer.reset(SDL_CreateRenderer(window.get(), -1, SDL_RENDERER_PRESENTVSYNC)); // against torn pictures only
    if (renderer == nullptr)
        failDisplay("nothing can be drawn");
    makeTexture();
    draw();
}

Window::~Window() {
    enlarged.reset();
    texture.reset();
    renderer.reset();
    window.reset();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void Window::makeTexture() {
    enlarged.reset();
    texture.reset();
    texture.reset(
        SDL_CreateTexture(renderer.get(), SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING, width, height));
    if (texture == nullptr)
        failDisplay("no texture");
}

bool Window::keyPressed() {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0)
        handle(event);
    return pressed;
}

void Window::handle(const SDL_Event& event) {
    switch (event.type) {
    case SDL_QUIT: // the close button, and the signals that ask a program to end
        pressed = true;
        break;
    case SDL_KEYDOWN:
        handleKey(event.key);
        break;
    case SDL_WINDOWEVENT: // while the demo draws nothing, nobody else repairs the window
        if (event.window.event == SDL_WINDOWEVENT_MINIMIZED || event.window.event == SDL_WINDOWEVENT_HIDDEN)
            hidden = true;
        if (event.window.event == SDL_WINDOWEVENT_RESTORED || event.window.event == SDL_WINDOWEVENT_SHOWN ||
            event.window.event == SDL_WINDOWEVENT_EXPOSED)
            hidden = false;
        if (event.window.event == SDL_WINDOWEVENT_EXPOSED || event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED)
            draw();
        break;
    case SDL_RENDER_DEVICE_RESET: // the graphics device has lost everything
        makeTexture();
        draw();
        break;
    default:
        break;
    }
}

void Window::handleKey(const SDL_KeyboardEvent& event) {
    const SDL_Keycode key = event.keysym.sym;
    const bool alt = (event.keysym.mod & KMOD_ALT) != 0;
    const bool toggle = key == SDLK_F11 || (alt && (key == SDLK_RETURN || key == SDLK_KP_ENTER));
    if (event.repeat != 0 || !isOrdinaryKey(key))
        return;
    if (toggle)
        setFullscreen(!fullscreen);
    else
        pressed = true;
}

void Window::setFullscreen(bool on) {
    if (on) {
        SDL_GetWindowPosition(window.get(), &windowed.x, &windowed.y);
        SDL_GetWindowSize(window.get(), &windowed.w, &windowed.h);
        if (!decorated(window.get()))
            place(screenOf(window.get()));
    }
    if (SDL_SetWindowFullscreen(window.get(), on ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0) != 0)
        return; // the window stays as it is
    if (!on)
        place(windowed);
    fullscreen = on;
    SDL_ShowCursor(on ? SDL_DISABLE : SDL_ENABLE);
}

void Window::place(const SDL_Rect& area) {
    SDL_SetWindowSize(window.get(), area.w, area.h);
    SDL_SetWindowPosition(window.get(), area.x, area.y);
}

void Window::draw() {
    if (SDL_UpdateTexture(texture.get(), nullptr, pixels.data(), width * static_cast<int>(sizeof(Pixel32))) != 0)
        makeTexture(); // lost with its device; the next picture fills the new one
    int outputWidth = 0;
    int outputHeight = 0;
    SDL_GetRendererOutputSize(renderer.get(), &outputWidth, &outputHeight);
    const SDL_Rect place = placePicture(outputWidth, outputHeight, width, height, scaling());
    SDL_SetRenderDrawColor(renderer.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer.get());
    copyPicture(place);
    SDL_RenderPresent(renderer.get());
}

// By a whole factor every pixel stays a square. Otherwise the picture is enlarged by the next whole factor first and
// that is filtered down, which keeps its pixels' edges sharp.
void Window::copyPicture(const SDL_Rect& place) {
    if (place.w % width == 0 && place.h % height == 0) {
        SDL_RenderCopy(renderer.get(), texture.get(), nullptr, &place);
        return;
    }
    const int factor = place.w / width + 1;
    int madeWidth = 0;
    if (enlarged == nullptr || SDL_QueryTexture(enlarged.get(), nullptr, nullptr, &madeWidth, nullptr) != 0 ||
        madeWidth != width * factor) {
        enlarged.reset(SDL_CreateTexture(renderer.get(), SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_TARGET,
                                         width * factor, height * factor));
        if (enlarged != nullptr)
            SDL_SetTextureScaleMode(enlarged.get(), SDL_ScaleModeLinear);
    }
    if (enlarged == nullptr || SDL_SetRenderTarget(renderer.get(), enlarged.get()) != 0) {
        SDL_RenderCopy(renderer.get(), texture.get(), nullptr, &place);
        return;
    }
    SDL_RenderCopy(renderer.get(), texture.get(), nullptr, nullptr);
    SDL_SetRenderTarget(renderer.get(), nullptr);
    SDL_RenderCopy(renderer.get(), enlarged.get(), nullptr, &place);
}

// A window keeps whole factors; a full screen is filled. The viewer's wish comes first.
Scaling Window::scaling() const {
    const char* const wish = std::getenv("LUMENFOLD_SCALING");
    if (wish != nullptr && std::string(wish) == "whole")
        return Scaling::whole;
    if (wish != nullptr && std::string(wish) == "fill")
        return Scaling::fill;
    return fullscreen ? Scaling::fill : Scaling::whole;
}

void Window::present() {
    waitForTurn();
    if (!hidden)
        draw();
}

// Turns come on a grid of 1/60 s. A missed turn starts a new grid, so that none is made up for in a rush.
void Window::waitForTurn() {
    const std::uint64_t frequency = SDL_GetPerformanceFrequency();
    const std::uint64_t turns = hidden ? turnsPerSecondHidden : picturesPerSecond;
    const std::uint64_t period = (frequency + turns - 1) / turns;
    std::uint64_t now = SDL_GetPerformanceCounter();
    while (now < due) {
        std::this_thread::sleep_for(std::chrono::nanoseconds((due - now) * 1000000000 / frequency));
        now = SDL_GetPerformanceCounter();
    }
    due = (due != 0 && now - due < period ? due : now) + period;
}

} // namespace lumenfold
