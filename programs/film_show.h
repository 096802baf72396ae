#pragma once

#include "driver/scene_table.h"
#include "programs/film.h"

#include <string>

namespace lumenfold::film {

// Runs the show with these scenes, the sink taking what is presented. Throws DynamicError, and std::runtime_error with
// the music's message.
void runOnStage(FrameSink& sink, std::int32_t fps, const SceneTable& scenes);

// The whole show as a viewer sees it. Throws what runOnStage throws, and UsageError for a range or part that the show
// never reaches.
void filmShow(Film& film, const Options& options);

// One scene alone, its sync values scripted. Throws DynamicError.
void filmScene(Film& film, const Options& options);

// One turn of an object on the turntable, seconds long. Returns its counts and bounds in words. Throws DynamicError.
std::string filmObject(Film& film, const Options& options);

} // namespace lumenfold::film
