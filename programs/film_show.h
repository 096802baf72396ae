#pragma once

#include "programs/film.h"

#include <string>

namespace lumenfold::film {

// The whole show as a viewer sees it. Throws DynamicError, and std::runtime_error with the music's message.
void filmShow(Film& film, const Options& options);

// One scene alone, its sync values scripted. Throws DynamicError, and UsageError for a name that is no scene's.
void filmScene(Film& film, const Options& options);

// One turn of an object on the turntable, seconds long. Returns its counts and bounds in words. Throws DynamicError.
std::string filmObject(Film& film, const Options& options);

// The names of all scenes, one a line.
std::string sceneNames();

} // namespace lumenfold::film
