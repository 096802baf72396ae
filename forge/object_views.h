#pragma once

#include "assets/mesh.h"
#include "forge/model.h"

#include <vector>

// What cameras see of finished objects, by rays: for the rule that nothing may be open or too near where one looks.

namespace lumenfold::art {

// A camera's place; turn about the upright axis and tilt in degrees, as scenes count them (0, 0 looks along +z,
// turn -90 along +x, tilt -90 straight down).
struct View {
    Point place;
    double turn = 0;
    double tilt = 0;
};

inline constexpr double halfFrameWidth = 0.625; // of what the frame shows at distance 1

// Unit vectors of what a camera sees.
struct ViewAxes {
    Point right, up, ahead;
};

ViewAxes axesOf(const View& view);

// One view every `step` units of the scene's time.
std::vector<View> tunnelViews(int step = 10); // the opening's flight and its turn round the corner
std::vector<View> hallViews(int step = 10);   // along the nave, up, down on the medallion
std::vector<View> flightViews(int step = 10); // over the water, all the way round

struct Sight {
    int open = 0;       // rays that meet nothing
    int behind = 0;     // rays that first meet the back of a face or one without texture
    double nearest = 0; // the least distance along the view that any ray meets
};

// Rays through a grid of the frame, height: half of what it shows up and down, at distance 1 (0.469 for the whole
// frame, 0.33 for the letterbox).
Sight lookAround(const Mesh& mesh, const std::vector<View>& views, double height);

} // namespace lumenfold::art
