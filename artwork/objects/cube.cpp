// The cube: folded from white paper. Each face has four squares, each folded along a diagonal, so that a few big facets
// catch the fire.

#include "artwork/objects/objects.h"

#include <array>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double half = 0.35;

// One facet of a face that looks to -z, and how its square is folded: the height of its middle crease.
void addFoldedFace(Model& face) {
    constexpr double rise = 0.085;
    for (int square = 0; square < 4; ++square) {
        const double left = (square & 1) != 0 ? 0 : -half;
        const double low = (square & 2) != 0 ? 0 : -half;
        // the middle of the face stands out, the middle of each square sinks in
        const auto point = [&](double u, double v) {
            const double x = left + u * half;
            const double y = low + v * half;
            const bool centre = x == 0 && y == 0;
            const bool sunk = u == 0.5;
            return face.addPoint({x, y, -half - (centre ? rise : sunk ? -0.6 * rise : 0)});
        };
        const std::array<std::array<double, 2>, 5> rim{{{0, 0}, {0, 1}, {1, 1}, {1, 0}, {0, 0}}};
        for (int side = 0; side < 4; ++side) { // facets do not share corners: creases stay hard
            const std::uint32_t a = point(rim[side][0], rim[side][1]);
            const std::uint32_t b = point(rim[side + 1][0], rim[side + 1][1]);
            const std::uint32_t c = point(0.5, 0.5);
            face.addTriangle(a, b, c, 0);
        }
    }
}

Point turnedTo(int side, Point p) {
    switch (side) {
    case 0:
        return p; // -z
    case 1:
        return {-p.x, p.y, -p.z}; // +z
    case 2:
        return {p.z, p.y, -p.x}; // -x
    case 3:
        return {-p.z, p.y, p.x}; // +x
    case 4:
        return {p.x, p.z, -p.y}; // -y
    default:
        return {p.x, -p.z, p.y}; // +y
    }
}

} // namespace

Model makeCube() {
    Model model;
    constexpr std::array<std::pair<const char*, Axis>, 3> papers{
        {{"front", Axis::Z}, {"side", Axis::X}, {"top", Axis::Y}}};
    for (const auto& [name, axis] : papers)
        model.addSurface({name, {240, 236, 228}, {{"paper1.jpg", axis, {}, {2 * half, 2 * half, 2 * half}}}, {}});
    Model face;
    addFoldedFace(face);
    if (face.normal(face.triangles[0]).z > 0)
        face.flip();
    for (std::uint32_t side = 0; side < 6; ++side)
        model.append(
            face, [side](Point p) { return turnedTo(static_cast<int>(side), p); }, side / 2);
    return model;
}

} // namespace lumenfold::art
