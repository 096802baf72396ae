#include "render/ray_field.h"

#include "core/convert.h"
#include "core/trig.h"
#include "render/matrix.h"
#include "render/ray_field_cell.h"
#include "render/transform.h"

#include <algorithm>
#include <cmath>

namespace lumenfold {

namespace {

constexpr int columns = 32; // cells of the frame; the grid has one more ray each way
constexpr int rows = 24;
constexpr double darkest = 255;

// A ray's texture coordinates packed as v x 65536 + u, and its darkening.
struct Sample {
    std::int32_t coordinates;
    std::int32_t shade;
};

// Where the numbers run past 16 bits or below zero, u borrows from v: the unpacking takes it as it stands.
Sample pack(double u, double v, double shade) {
    return {wrapAdd(wrapMul(truncate(v), 65536), truncate(u)), truncate(std::min(shade, darkest))};
}

Sample samplePlane(const Vector3& ray, float distance) {
    const double x = ray[0];
    const double y = ray[1];
    const double z = ray[2];
    if (y >= -0.002 && y <= 0.002)
        return pack(0, 0, darkest);
    const double t = std::fabs(distance / y);
    return pack(t * x * 6.0, t * z * 6.0, t * 0.7);
}

// The angle's absolute value mirrors the tunnel's halves onto the same columns, 0 to 256.
Sample sampleTunnel(const Vector3& ray) {
    const double x = ray[0];
    const double y = ray[1];
    const double z = ray[2];
    const double r = std::sqrt(x * x + y * y);
    if (r == 0.0)
        return pack(0, 0, darkest); // along the axis the tunnel has no end
    return pack(std::fabs(trig::atan2(y, x)) * 81.4873996925124, z / r * 32.0, std::fabs(z / r) * 6.0);
}

void turnRays(RayField& field) {
    Matrix m;
    composeRotation(m, field.matrix, field.angles[0], field.angles[1], field.angles[2]);
    for (Vector3& ray : field.rays)
        ray = transformPoint(ray[0], ray[1], ray[2], m);
}

void traceRays(RayField& field) {
    field.coordinates.resize(field.rays.size());
    field.shades.resize(field.rays.size());
    for (std::size_t i = 0; i < field.rays.size(); ++i) {
        const Vector3& ray = field.rays[i];
        const Sample sample = field.shape == RayShape::Plane ? samplePlane(ray, field.distance) : sampleTunnel(ray);
        field.coordinates[i] = sample.coordinates;
        field.shades[i] = sample.shade;
    }
}

// A grid corner in 16.16. Both halves of the coordinate word are read as signed.
FieldValue corner(const RayField& field, std::size_t ray) {
    const std::int32_t word = field.coordinates[ray];
    return {toFixed16(wrapAdd(static_cast<std::int16_t>(word & 0xFFFF), field.scrollU)),
            toFixed16(wrapAdd(word >> 16, field.scrollV)), toFixed16(field.shades[ray])};
}

template <typename Operation>
FieldValue combine(const FieldValue& a, const FieldValue& b, Operation operation) {
    return {operation(a.u, b.u), operation(a.v, b.v), operation(a.shade, b.shade)};
}

// The step of one row down a side of the cell.
FieldValue rowStep(const FieldValue& top, const FieldValue& bottom, std::int32_t height) {
    return combine(top, bottom, [height](std::int32_t a, std::int32_t b) { return wrapSub(b, a) / height; });
}

// The cell at (x, y) whose top-left ray is the one given; its sides are divided into `height` steps. What would stand
// outside the frame is left out.
void drawCell(const RayField& field, std::size_t topLeft, std::int32_t x, std::int32_t y, Pixel32* target,
              FrameInfo info) {
    const std::size_t below = topLeft + static_cast<std::size_t>(field.gridWidth);
    const std::int32_t width = info.width / columns;
    const std::int32_t height = info.height / rows;
    FieldCell cell;
    cell.left = corner(field, topLeft);
    cell.right = corner(field, topLeft + 1);
    cell.leftStep = rowStep(cell.left, corner(field, below), height);
    cell.rightStep = rowStep(cell.right, corner(field, below + 1), height);
    cell.width = std::min(width, info.width - x);
    cell.height = std::min(height, info.height - y);
    fillFieldCell(target + static_cast<std::ptrdiff_t>(y) * info.width + x, info.width, cell, field.texture);
}

} // namespace

RayField makeRayField(RayShape shape, const Pixel32* texture) {
    RayField field;
    field.gridWidth = columns + 1;
    field.gridHeight = rows + 1;
    field.shape = shape;
    field.texture = texture;
    field.distance = 30.0F;
    matrixIdentity(field.matrix);
    for (int j = -rows / 2; j <= rows / 2; ++j) {
        for (int i = -columns / 2; i <= columns / 2; ++i) {
            Vector3& ray = field.rays.emplace_back(Vector3{static_cast<float>(i), static_cast<float>(j), 16.0F});
            vectorNormalize(ray);
        }
    }
    return field;
}

void drawRayField(RayField& field, Pixel32* target, FrameInfo info) {
    turnRays(field);
    traceRays(field);
    if (info.width < columns || info.height < rows || field.texture == nullptr)
        return;
    std::int32_t y = 0;
    for (std::int32_t k = 0; k < field.gridHeight - 1 && y < info.height; ++k) {
        std::int32_t x = 0;
        for (std::int32_t c = 0; c < field.gridWidth - 1 && x < info.width; ++c) {
            drawCell(field, static_cast<std::size_t>(k * field.gridWidth + c), x, y, target, info);
            x = truncate(x + info.width * 0.03125);
        }
        y = truncate(y + info.height * 0.041666666666666664);
    }
}

} // namespace lumenfold
