#include "bench/filler_load.h"
#include "bench/measure.h"
#include "bench/sections.h"
#include "render/depth_buffer.h"
#include "render/ray_field.h"
#include "render/scene.h"

#include <cstddef>
#include <vector>

namespace lumenfold::bench {

namespace {

constexpr FrameInfo frame = {512, 384, 1, 22050, 1};
constexpr std::size_t framePixels = std::size_t{512} * 384;

void measureRayField(Report& report, RayShape shape, const char* name) {
    const std::vector<Pixel32> texture = loadTexture();
    std::vector<Pixel32> target(framePixels);
    RayField field = makeRayField(shape, texture.data());
    field.angles = {0.1F, 0.2F, 0.5F};
    field.scrollV = 3;
    report.addTime(name, sample([&] { drawRayField(field, target.data(), frame); }).median());
}

void measureTransformation(Report& report) {
    allocateDepthBuffer(frame.width, frame.height);
    constexpr std::uint32_t vertexCount = 10000;
    Scene scene;
    Mesh* mesh = scene.addObject();
    mesh->vertices.resize(vertexCount);
    for (std::uint32_t i = 0; i < vertexCount; ++i)
        mesh->vertices[i] = {static_cast<float>(i % 100), static_cast<float>(i / 100), 1.0F, 0.0F, 0.6F, 0.8F, i};
    mesh->transformed = mesh->vertices;
    mesh->vertexCount = vertexCount;
    mesh->orientation = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    mesh->spin = {0.5F, 1.0F, 1.5F};
    std::vector<Pixel32> target(framePixels);
    const double time = sample([&] { drawScene(scene, frame, target.data(), 0.0F); }).median();
    report.add("transformation, positions and normals", vertexCount / time, "Mvertex/s");
}

} // namespace

void measureRenderer(Report& report, bool) {
    report.section("Ray field and transformation");
    measureRayField(report, RayShape::Plane, "ray field, plane");
    measureRayField(report, RayShape::Tunnel, "ray field, tunnel");
    measureTransformation(report);
}

} // namespace lumenfold::bench
