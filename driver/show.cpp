#include "driver/show.h"

#include "driver/clock.h"
#include "driver/loading_bar.h"

namespace lumenfold {

PresentedFrame presentedFrame;

namespace {

constexpr char title[] = "lumenfold  - vexa 2000";

Display& open(Display& display) {
    ptc::Console& console = display.console;
    if (frameInfo.fullscreen == 1)
        console.option("fullscreen output");
    else if (frameInfo.fullscreen == 0)
        console.option("windowed output");
    console.option("center nearest");
    console.open(title, frameInfo.width, frameInfo.height, display.format);
    return display;
}

} // namespace

Show::Show(Display& opened, const SceneTable& scenes)
    : time(counterFrequency()), display(open(opened)), surface(frameInfo.width, frameInfo.height, display.format),
      session(scenes) {
    presentedFrame = {};
}

void Show::load() {
    session.load([this](const SceneRow& scene) {
        if (scene.barWidth > 0)
            presentBar(scene.barWidth);
        if (scene.part == scrollerPart) { // loads after the bar has gone
            surface.clear();
            display.console.clear();
        }
    });
}

void Show::presentBar(std::int32_t width) {
    drawLoadingBar(frameInfo, surface.lock(), width);
    present();
}

void Show::presentScene(const SceneRow& scene) {
    Pixel32* frameBuffer = surface.lock();
    presentedFrame = {&scene, time.at(readCounter())};
    Session::render(scene, frameBuffer, presentedFrame.time);
    present();
}

void Show::present() {
    surface.unlock();
    surface.copy(display.console);
    display.console.update();
}

} // namespace lumenfold
