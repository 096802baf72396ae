#pragma once

#include "forge/model.h"

// Building blocks of the objects. Each adds to a model, fronts outwards unless said otherwise.

namespace lumenfold::art {

void addBox(Model& model, Point low, Point high, std::uint32_t surface);

// A skin over rings of equally many points, each ring closed; rings run along the skin. Seen from where the rings
// come from, the points of a ring run clockwise for fronts outwards.
void addSkin(Model& model, const std::vector<std::vector<Point>>& rings, std::uint32_t surface);

// A skin over rows of equally many points that are not closed.
void addSheet(Model& model, const std::vector<std::vector<Point>>& rows, std::uint32_t surface);

// A fan over a closed ring of points around its middle.
void addCap(Model& model, const std::vector<Point>& ring, std::uint32_t surface);

// A regular polygon of count points in the x-z plane at the height given, for skins that rise along y.
std::vector<Point> ringAround(Point centre, double radius, int count, double turn = 0);

} // namespace lumenfold::art
