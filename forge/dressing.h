#pragma once

#include "forge/model.h"

#include <string>

// Texture maps for the objects' surfaces.

namespace lumenfold::art {

// A planar map that repeats after `tile` units exactly (256 texels) and has texel (0, 0) at `origin`. A negative
// component of tile mirrors the image along that axis.
PlanarMap tiledMap(const std::string& image, Axis axis, Point origin, Point tile);

// Adds a surface with a colour map. Names must differ: a reader finds a surface by its name.
std::uint32_t addSurface(Model& model, const std::string& name, const PlanarMap& map);

// Dresses every triangle of surface `from` with one tiling image, seen along its main direction.
void dress(Model& model, std::uint32_t from, const std::string& name, const std::string& image, double tile);

// The bands of "lamps.jpg": light lines that run along the columns.
enum class Lamp { amber, teal, ice, vent };

// A map that lays a band along a strip whose middle is at the height y and which is `width` high. axis X or Z; a
// copy of the image is `length` units long.
PlanarMap lampMap(Lamp lamp, Axis axis, double y, double width, double length);

// Four surfaces that mirror the quarter picture "medal1.jpg" into a round medallion about the centre.
struct Medallion {
    std::uint32_t first; // + 1 on the right, + 2 above (beyond, for the y axis)
    Axis axis;
    Point centre;
    std::uint32_t surfaceAt(Point place) const;
};
Medallion addMedallion(Model& model, Axis axis, Point centre, double radius);

} // namespace lumenfold::art
