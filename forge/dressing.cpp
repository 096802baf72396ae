#include "forge/dressing.h"

#include <cmath>
#include <utility>

namespace lumenfold::art {

namespace {
// The reader lays 255 texels over the size and puts the centre on texel 127.5.
constexpr double sizePerTile = 255.0 / 256;
constexpr double middle = 127.5 / 256;
constexpr double nudge = 0.01 / 256; // keeps whole texels whole when they are truncated
} // namespace

PlanarMap tiledMap(const std::string& image, Axis axis, Point origin, Point tile) {
    return {image,
            axis,
            {origin.x + (middle - nudge) * tile.x, origin.y - (middle - nudge) * tile.y,
             origin.z + (middle - nudge) * tile.z},
            tile * sizePerTile};
}

std::uint32_t addSurface(Model& model, const std::string& name, const PlanarMap& map) {
    return model.addSurface({name, {20, 82, 92}, {map}, {}});
}

void dress(Model& model, std::uint32_t from, const std::string& name, const std::string& image, double tile) {
    const DirectionalSurfaces s = addTiledSurfaces(model, name, image, tile);
    model.assignByDirection(s.x, s.y, s.z, from);
}

PlanarMap lampMap(Lamp lamp, Axis axis, double y, double width, double length) {
    const double band = (32 + 64 * static_cast<int>(lamp)) / 255.0; // where its middle lies, 0 to 1 from the top
    const double size = width * 255 / 60;                           // two texels of each border stay outside
    return {"lamps.jpg", axis, {0, y - (0.5 - band) * size, 0}, {length, size, length}};
}

std::uint32_t Medallion::surfaceAt(Point place) const {
    const Point d = place - centre;
    const double right = axis == Axis::X ? d.z : d.x;
    const double up = axis == Axis::Y ? d.z : d.y;
    return first + (right > 0 ? 1U : 0U) + (up > 0 ? 2U : 0U);
}

Medallion addMedallion(Model& model, Axis axis, Point centre, double radius) {
    const auto first = static_cast<std::uint32_t>(model.surfaces.size());
    const double tile = radius * 256 / 255;
    for (int quarter = 0; quarter < 4; ++quarter) {
        const double right = (quarter & 1) != 0 ? tile : -tile;
        const double up = (quarter & 2) != 0 ? tile : -tile;
        const Point size = axis == Axis::X   ? Point{1, -up, right}
                           : axis == Axis::Y ? Point{right, 1, up}
                                             : Point{right, -up, 1};
        addSurface(model, "medallion" + std::to_string(first) + "." + std::to_string(quarter),
                   tiledMap("medal1.jpg", axis, centre, size));
    }
    return {first, axis, centre};
}

} // namespace lumenfold::art
