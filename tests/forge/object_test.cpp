#include "assets/lightwave.h"
#include "forge/dressing.h"
#include "forge/isosurface.h"
#include "forge/model.h"
#include "forge/object_views.h"
#include "forge/sdf.h"
#include "forge/shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>

using namespace lumenfold;
using namespace lumenfold::art;

namespace {

int openEdges(const Model& model) {
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> passed;
    for (const Triangle& t : model.triangles)
        for (std::size_t k = 0; k < 3; ++k) {
            ++passed[{t.corners[k], t.corners[(k + 1) % 3]}];
            --passed[{t.corners[(k + 1) % 3], t.corners[k]}];
        }
    int open = 0;
    for (const auto& edge : passed)
        open += edge.second != 0;
    return open;
}

double volume(const Model& model) {
    double sum = 0;
    for (const Triangle& t : model.triangles)
        sum += dot(model.points[t.corners[0]], cross(model.points[t.corners[1]], model.points[t.corners[2]])) / 6;
    return sum;
}

Model ring() { // a torus: closed, with a hole that a careless collapse would fill
    return meshSolid([](Point p) { return sdf::torus(p, 1.0, 0.4); }, {-1.6, -1.6, -0.6}, {1.6, 1.6, 0.6}, 0.1);
}

void read(const Model& model, Mesh& mesh) {
    const std::vector<std::uint8_t> bytes = encodeLightWaveObject(model);
    std::ostringstream commentary;
    readLightWaveObject(bytes.data(), bytes.size(), mesh, 1, commentary);
}

} // namespace

TEST(Isosurface, IsClosedAndLooksOutwards) {
    const Model model = ring();
    EXPECT_EQ(openEdges(model), 0);
    const double exact = 2 * 9.8696 * 1.0 * 0.4 * 0.4;
    EXPECT_NEAR(volume(model), exact, 0.03 * exact);
    for (const Point& p : model.points)
        EXPECT_NEAR(sdf::torus(p, 1.0, 0.4), 0, 0.002);
}

TEST(Simplify, KeepsASolidClosedAndItsShape) {
    Model model = ring();
    const double before = volume(model);
    simplify(model, 400);
    EXPECT_LE(model.triangles.size(), 400U);
    EXPECT_EQ(openEdges(model), 0);
    EXPECT_NEAR(volume(model), before, 0.06 * before);
    const auto corners = static_cast<int>(model.points.size());
    EXPECT_EQ(corners - static_cast<int>(model.triangles.size()) / 2, 0) << "Euler number of a torus";
}

TEST(Model, WeldJoinsBodiesThatShareARim) {
    Model model;
    addSkin(model, {ringAround({0, 1, 0}, 0, 6), ringAround({0, 0, 0}, 1, 6)}, 0);
    addSkin(model, {ringAround({0, 0, 0}, 1, 6), ringAround({0, -1, 0}, 0, 6)}, 0);
    EXPECT_GT(openEdges(model), 0);
    model.weld(1e-4);
    EXPECT_EQ(model.points.size(), 8U);
    EXPECT_EQ(openEdges(model), 0);
    EXPECT_GT(volume(model), 0);
}

TEST(LightWaveWriter, IsReadBackByTheDemo) {
    Model model;
    addSurface(model, "first", {"(none)", Axis::Z, {1, 2, 0}, {4, 2, 1}});
    model.addSurface({"odd", {1, 2, 3}, {}, {}});
    model.addTriangle(model.addPoint({-1, 1, 0.5}), model.addPoint({3, 3, 0.5}), model.addPoint({3, 1, 0.5}), 0);
    model.addTriangle(2, 1, 0, 1);
    Mesh mesh;
    read(model, mesh);
    ASSERT_EQ(mesh.faceCount, 2U);
    ASSERT_EQ(mesh.materialCount, 2U);
    EXPECT_EQ(mesh.materials[1].name, "odd");
    EXPECT_EQ(mesh.materials[0].mode, DrawMode::Perspective);
    EXPECT_EQ(mesh.materials[1].mode, modeDrawn);
    EXPECT_EQ(mesh.vertices[1].x, 3.0F);
    EXPECT_EQ(mesh.faces[1].corners[0]->index, 2U);
    const FaceCoordinates expected = {0, 255, 255, 0, 255, 255};
    EXPECT_EQ(mesh.faces[0].uv1, expected);
}

// A tile covers 256 texels exactly, although the reader lays 255 over the size.
TEST(TiledMap, StaysOnWholeTexelsOverManyTiles) {
    for (const Axis axis : {Axis::X, Axis::Y, Axis::Z}) {
        Model model;
        addSurface(model, "s", tiledMap("(none)", axis, {1, 5, -2}, {2.5, 2.5, 2.5}));
        for (const int tile : {0, 1, 40})
            model.addPoint(Point{1, 5, -2} + Point{2.5, axis == Axis::Y ? 0 : -2.5, 2.5} * tile);
        model.addTriangle(0, 1, 2, 0);
        Mesh mesh;
        read(model, mesh);
        const FaceCoordinates expected = {0, 0, 256, 256, 10240, 10240};
        EXPECT_EQ(mesh.faces[0].uv1, expected) << static_cast<int>(axis);
    }
}

TEST(LookAround, TellsOpenPlacesAndBacksFromWalls) {
    Model box;
    addSurface(box, "s", {"(none)", Axis::Z, {}, {1, 1, 1}});
    addBox(box, {-2, -2, -2}, {2, 2, 2}, 0);
    const std::vector<View> views = {{{0, 0, 0}, 0, 0}, {{0, 0, 0}, -90, 0}, {{0, 0, 0}, 0, -90}};
    Mesh outside;
    read(box, outside);
    EXPECT_GT(lookAround(outside, views, 0.4).behind, 0);
    box.flip();
    Mesh room;
    read(box, room);
    const Sight closed = lookAround(room, views, 0.4);
    EXPECT_EQ(closed.open + closed.behind, 0);
    EXPECT_NEAR(closed.nearest, 2, 1e-6);
    box.triangles.erase(box.triangles.begin() + 4, box.triangles.begin() + 6); // the wall at x = -2
    Mesh gap;
    read(box, gap);
    EXPECT_GT(lookAround(gap, {{{0, 0, 0}, 90, 0}}, 0.4).open, 0);
    EXPECT_EQ(lookAround(gap, {{{0, 0, 0}, -90, 0}}, 0.4).open, 0);
}
