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

Show::Show(Display& opened)
    : time(counterFrequency()), display(open(opened)), surface(frameInfo.width, frameInfo.height, display.format) {
    presentedFrame = {};
}

void Show::loadScenes() {
    for (const SceneRow& scene : sceneTable) {
        if (scene.barWidth > 0)
            presentBar(scene.barWidth);
        if (scene.part == scrollerPart) { // loads after the bar has gone
            surface.clear();
            display.console.clear();
        }
        scene.effect(frameInfo, EffectCommand::Init, nullptr, 0.0F);
    }
}

void Show::releaseScenes() {
    for (const SceneRow& scene : sceneTable)
        if (scene.released)
            scene.effect(frameInfo, EffectCommand::Release, nullptr, 0.0F);
}

void Show::presentBar(std::int32_t width) {
    drawLoadingBar(frameInfo, surface.lock(), width);
    present();
}

void Show::presentScene(const SceneRow& scene) {
    Pixel32* frameBuffer = surface.lock();
    presentedFrame = {&scene, time.at(readCounter())};
    scene.effect(frameInfo, EffectCommand::Render, frameBuffer, presentedFrame.time);
    present();
}

void Show::present() {
    surface.unlock();
    surface.copy(display.console);
    display.console.update();
}

} // namespace lumenfold
