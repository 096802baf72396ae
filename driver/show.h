#pragma once

#include "core/frame_info.h"
#include "driver/demo_time.h"
#include "driver/ptc.h"
#include "driver/scene_table.h"

#include <cstdint>

namespace lumenfold {

inline constexpr FrameInfo frameInfo{512, 384, 1, 22050, 1};

// The console and its pixel format. They exist before run() and outlive it, whatever ends it.
struct Display {
    ptc::Format format;
    ptc::Console console;
};

// What a run of the demo works with: the opened console, the display surface and the demo time.
class Show {
  public:
    // Opens the display's console and creates the surface.
    explicit Show(Display& display);

    // Every scene's Init in order, behind the loading bar, which is gone at the end.
    void loadScenes();
    void releaseScenes();

    // Draws the loading bar of that width over the one before and presents it.
    void presentBar(std::int32_t width);

    // Lets the scene draw one frame at the present demo time and presents it.
    void presentScene(const SceneRow& scene);

    bool keyWaiting() { return display.console.key(); }
    ptc::Console& console() { return display.console; }

  private:
    void present();

    DemoTime time; // first: the counter's frequency is read before the console opens
    Display& display;
    ptc::Surface surface;
};

// The frame that was presented last: its scene (null: the loading bar) and demo time. For the platform's reports.
struct PresentedFrame {
    const SceneRow* scene = nullptr;
    float time = 0.0F;
};
extern PresentedFrame presentedFrame;

} // namespace lumenfold
