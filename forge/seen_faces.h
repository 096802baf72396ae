#pragma once

#include "forge/model.h"
#include "forge/object_views.h"

#include <functional>
#include <vector>

namespace lumenfold::art {

// Drops the triangles that none of the views sees and the points that nothing uses any more. Triangles beside seen ones
// stay where only something in front hides them, as views between these may see them. height: as for lookAround.
void keepSeen(Model& model, const std::vector<View>& views, double height);

// Orders the triangles by their middles, smallest distance first. What is drawn from near to far is drawn once: the
// hidden rest is only compared in depth.
void orderBy(Model& model, const std::function<double(Point)>& distance);

} // namespace lumenfold::art
