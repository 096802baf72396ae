#pragma once

#include "driver/demo_time.h"
#include "driver/ptc.h"
#include "driver/session.h"

#include <cstdint>

namespace lumenfold {

// The console and its pixel format. They exist before run() and outlive it, whatever ends it.
struct Display {
    ptc::Format format;
    ptc::Console console;
};

// A session on a display: the opened console, the display surface and the demo time.
class Show {
  public:
    // Opens the display's console, creates the surface and starts the session.
    explicit Show(Display& display, const SceneTable& scenes = sceneTable());

    // Loads the scenes behind the loading bar, which is gone at the end. Throws what Session::load throws.
    void load();
    void release() { session.release(); }

    // Lets the scene draw one frame at the present demo time and presents it.
    void presentScene(const SceneRow& scene);

    const SceneTable& scenes() const { return session.scenes(); }
    bool keyWaiting() { return display.console.key(); }
    ptc::Console& console() { return display.console; }

  private:
    // Draws the loading bar of that width over the one before and presents it.
    void presentBar(std::int32_t width);
    void present();

    DemoTime time; // first: the counter's frequency is read before the console opens
    Display& display;
    ptc::Surface surface;
    Session session;
};

// The frame that was presented last: its scene (null: the loading bar) and demo time. For the platform's reports.
struct PresentedFrame {
    const SceneRow* scene = nullptr;
    float time = 0.0F;
};
extern PresentedFrame presentedFrame;

} // namespace lumenfold
