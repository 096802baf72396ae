#pragma once

#include "forge/vector.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Triangle models for the show's objects and their LightWave object files.
//
// Space: x right, y up, z away from the viewer. A triangle's corners run clockwise as seen from its front, so that
// (p1 - p0) x (p2 - p0) points out of the front.

namespace lumenfold::art {

enum class Axis : std::uint16_t { X = 1, Y = 2, Z = 4 };

// A planar image map: the image covers size units around centre, seen along the axis, and repeats beyond.
struct PlanarMap {
    std::string image; // file name, or "(none)" where a scene puts a texture of its own
    Axis axis = Axis::Z;
    Point centre;
    Point size{1, 1, 1};
};

struct Surface {
    std::string name;
    std::array<std::uint8_t, 3> colour{128, 128, 128};
    std::vector<PlanarMap> colourMap;     // none or one
    std::vector<PlanarMap> reflectionMap; // none or one
};

struct Triangle {
    std::array<std::uint32_t, 3> corners;
    std::uint32_t surface;
};

class Model {
  public:
    std::vector<Point> points;
    std::vector<Triangle> triangles;
    std::vector<Surface> surfaces;

    std::uint32_t addSurface(Surface surface);
    std::uint32_t addPoint(Point point);
    void addTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t surface);
    void addQuad(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d, std::uint32_t surface);

    // Adds another model's points and triangles, moved by place; its surface 0 becomes the given surface.
    void append(const Model& other, const std::function<Point(Point)>& place, std::uint32_t surface);

    Point normal(const Triangle& triangle) const; // unit length
    Point centroid(const Triangle& triangle) const;

    void flip();                // turns every face inside out
    void weld(double distance); // points closer than that become one; faces that collapse are dropped
    void assignByDirection(std::uint32_t surfaceX, std::uint32_t surfaceY, std::uint32_t surfaceZ, std::uint32_t from);
};

// Three surfaces with the same tiling image, one for each main direction, for Model::assignByDirection.
// tile: the units that one copy of the image covers.
struct DirectionalSurfaces {
    std::uint32_t x;
    std::uint32_t y;
    std::uint32_t z;
};
DirectionalSurfaces addTiledSurfaces(Model& model, const std::string& name, const std::string& image, double tile,
                                     Point centre = {});

// The model as an IFF "FORM" of type "LWOB". Throws std::runtime_error when it has more than 32768 points.
std::vector<std::uint8_t> encodeLightWaveObject(const Model& model);

} // namespace lumenfold::art
