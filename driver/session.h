#pragma once

#include "core/frame_info.h"
#include "driver/scene_table.h"

#include <functional>

namespace lumenfold {

inline constexpr FrameInfo frameInfo{512, 384, 1, 22050, 1};

// One run of scenes on the state that they share with renderer and music. Whoever shows scenes starts with one of
// these: the demo, its films, the benchmark and the tests. One at a time; it needs neither display nor music.
class Session {
  public:
    // Puts the shared state back to that of a program just started and opens an empty texture cache.
    // table: the scenes that take part.
    explicit Session(const SceneTable& table);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Every scene's Init in order, then the depth buffer that they draw with: whatever is left of theirs goes.
    // before: called with each row before its Init. Throws DynamicError for a picture that cannot be read.
    void load(const std::function<void(const SceneRow&)>& before = [](const SceneRow&) {});

    // One frame of a scene into pixels of frameInfo's size, which still hold the frame before.
    static void render(const SceneRow& scene, Pixel32* pixels, float time) {
        scene.effect(frameInfo, EffectCommand::Render, pixels, time);
    }

    // What follows the scene's loop, save for the change of tune.
    static void leave(const SceneRow& scene);

    // Releases the scenes that ask for it and closes the texture cache.
    void release();

    const SceneTable& scenes() const { return table; }

  private:
    SceneTable table;
};

} // namespace lumenfold
