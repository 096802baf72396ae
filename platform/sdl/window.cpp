#include "platform/sdl/window.h"

#include "core/dynamic_error.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace lumenfold {

namespace {

constexpr std::uint64_t picturesPerSecond = 60; // the show's motion is partly counted in frames and made for this rate

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
    return std::max(std::min(desktop.w * 9 / 10 / width, desktop.h * 9 / 10 / height), 1);
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

SDL_Rect placePicture(std::int32_t windowWidth, std::int32_t windowHeight, std::int32_t width, std::int32_t height) {
    const std::int32_t factor = std::min(windowWidth / width, windowHeight / height);
    SDL_Rect place{0, 0, width * factor, height * factor};
    if (factor == 0) {
        const double shrink =
            std::min(static_cast<double>(windowWidth) / width, static_cast<double>(windowHeight) / height);
        place.w = static_cast<int>(width * shrink);
        place.h = static_cast<int>(height * shrink);
    }
    place.x = (windowWidth - place.w) / 2;
    place.y = (windowHeight - place.h) / 2;
    return place;
}

Window::Window(const char* title, std::int32_t pictureWidth, std::int32_t pictureHeight, bool startFullscreen)
    : width(pictureWidth), height(pictureHeight),
      pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "nearest");
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
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
    texture.reset();
    renderer.reset();
    window.reset();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void Window::makeTexture() {
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
    if (event.repeat != 0 || key == SDLK_LALT || key == SDLK_RALT) // Alt alone may be the first half of Alt+Enter
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
    const SDL_Rect place = placePicture(outputWidth, outputHeight, width, height);
    SDL_SetRenderDrawColor(renderer.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer.get());
    SDL_RenderCopy(renderer.get(), texture.get(), nullptr, &place);
    SDL_RenderPresent(renderer.get());
}

void Window::present() {
    waitForTurn();
    draw();
}

// Turns come on a grid of 1/60 s; whoever misses one starts a new grid, so that no turns are made up for in a rush.
void Window::waitForTurn() {
    const std::uint64_t frequency = SDL_GetPerformanceFrequency();
    const std::uint64_t period = (frequency + picturesPerSecond - 1) / picturesPerSecond;
    const std::uint64_t nearly = frequency / 500; // what is left of the wait when sleeping becomes too coarse
    std::uint64_t now = SDL_GetPerformanceCounter();
    while (now < due) {
        const std::uint64_t left = due - now;
        SDL_Delay(left > nearly ? static_cast<Uint32>((left - nearly) * 1000 / frequency) : 0);
        now = SDL_GetPerformanceCounter();
    }
    due = (due != 0 && now - due < period ? due : now) + period;
}

} // namespace lumenfold
