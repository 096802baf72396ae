#include "bench/measure.h"
#include "bench/sections.h"
#include "bench/silence.h"
#include "core/sync_state.h"
#include "core/sync_values.h"
#include "driver/music.h"
#include "driver/session.h"
#include "effects/frame_size.h"

#include <cstddef>
#include <string>
#include <vector>

namespace lumenfold::bench {

namespace {

constexpr float unitsPerFrame = 15.68F / 60.0F;

// Times below are demo time since the part's first frame.
struct Phase {
    const char* name;
    float until;
};
struct Sync {
    std::uint32_t value;
    float at;
};
struct Script {
    std::int32_t part;
    std::vector<Phase> phases; // one after the other
    std::vector<Sync> syncs;   // in order of time
};

std::vector<Sync> every(float step, std::uint32_t value, int count) {
    std::vector<Sync> syncs;
    for (int i = 1; i <= count; ++i)
        syncs.push_back({value, step * static_cast<float>(i)});
    return syncs;
}

// What the music does to a part, so that every phase is met. Parts without phases of their own are not listed.
Script scriptOf(std::int32_t part) {
    const std::vector<Script> scripts = {
        {1,
         {{"tunnel", 288}, {"dissolve", 351}, {"logo", 587}, {"fade-out", 650}, {"hall", 987}, {"cross-fade", 1046}},
         {{sync::dissolve, 288}, {sync::hall, 660}}},
        {2,
         {{"ring grows", 32}, {"whole ring", 200}, {"cube", 272}, {"held picture", 280}},
         {{sync::pulse, 40}, {sync::pulse, 80}, {sync::pulse, 120}, {sync::swap, 200}}},
        {3,
         {{"first object", 100},
          {"second object", 200},
          {"third object", 300},
          {"fourth object", 400},
          {"fifth object", 500},
          {"fade-out", 570}},
         {{sync::hit, 50},
          {sync::swap, 100},
          {sync::hit, 150},
          {sync::swap, 200},
          {sync::hit, 250},
          {sync::swap, 300},
          {sync::hit, 350},
          {sync::swap, 400},
          {sync::hit, 450},
          {sync::fadeOut, 500}}},
        {4,
         {{"twin tunnel", 200}, {"light spot", 220}, {"ray tunnel", 420}, {"still", 430}},
         {{sync::hit, 50}, {sync::hit, 100}, {sync::swap, 200}, {sync::pulse, 220}, {sync::swap, 420}}},
        {5, {{"weld", 27}, {"split", 45}, {"film roll", 134}, {"held picture", 145}}, {{sync::swap, 45}}},
        {6, {{"flight", 221}, {"fade-out", 306}}, every(50, sync::hit, 4)},
        {7, {{"fade-in", 256}, {"wave", 400}}, {}},
        {8, {{"pane", 400}}, every(50, sync::hit, 6)},
        {9, {{"tube", 400}}, every(30, sync::hit, 12)},
    };
    for (const Script& script : scripts)
        if (script.part == part)
            return script;
    return {part, {{"whole", 400}}, {}};
}

void addPhase(Report& report, const std::string& name, std::vector<double>& times) {
    if (times.empty())
        return;
    const Samples samples(std::move(times));
    report.addTime(name + ", median", samples.median());
    report.addTime(name + ", 99 %", samples.quantile(0.99));
    times.clear();
}

// Plays a scene's part and moves the demo time on.
void play(Report& report, const SceneRow& scene, std::vector<Pixel32>& pixels, float& time) {
    const Script script = scriptOf(scene.part);
    if (scene.part <= mainParts)
        syncState.currentPart = static_cast<std::uint8_t>(scene.part);
    std::vector<double> times;
    std::size_t nextSync = 0;
    float local = 0.0F;
    for (const Phase& phase : script.phases) {
        for (; local < phase.until; local += unitsPerFrame) {
            for (; nextSync < script.syncs.size() && script.syncs[nextSync].at <= local; ++nextSync)
                musicSyncCallback(script.syncs[nextSync].value, 0, 0);
            const double begin = threadMicroseconds();
            Session::render(scene, pixels.data(), time + local);
            times.push_back(threadMicroseconds() - begin);
        }
        addPhase(report, "part " + std::to_string(script.part) + ", " + phase.name, times);
    }
    time += local;
    Session::leave(scene);
}

} // namespace

void measureScenes(Report& report, bool) {
    report.section("Scenes, one frame");
    Session session(sceneTable());
    {
        const Silence noCommentary; // of the object reader
        session.load();
    }
    std::vector<Pixel32> pixels(pixelCount(frameInfo));
    float time = 1000.0F; // demo time begins anywhere
    for (const SceneRow& scene : session.scenes())
        if (scene.part != noPart)
            play(report, scene, pixels, time);
    session.release();
}

} // namespace lumenfold::bench
