#pragma once

#include "forge/model.h"

#include <functional>

namespace lumenfold::art {

// A solid as its signed distance: negative inside. It need not be exact, only smooth near the surface.
using Solid = std::function<double(Point)>;

// The closed surface of a solid within a box, sampled at the given spacing; the solid must end inside the box.
// All triangles on surface 0, fronts outwards. Method: surface nets (S. F. F. Gibson, Constrained Elastic Surface
// Nets, 1998), one point per crossed cell, then pulled onto the surface along the gradient.
Model meshSolid(const Solid& solid, Point low, Point high, double spacing);

// Collapses edges until at most that many triangles remain, keeping closed surfaces closed. Edges between different
// surfaces stay. Method: M. Garland and P. Heckbert, Surface Simplification Using Quadric Error Metrics (1997).
void simplify(Model& model, std::size_t triangles);

} // namespace lumenfold::art
