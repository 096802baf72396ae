#include "render/ray_field.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/packed.h"
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
constexpr std::int32_t darkest = 255;

// A ray's texture coordinates packed as v x 65536 + u, and its darkening.
struct Sample {
    std::int32_t coordinates;
    std::int32_t shade;
};

// Where the numbers run past 16 bits or below zero, u borrows from v: the unpacking takes it as it stands.
Sample pack(double u, double v, double shade) {
    return {wrapAdd(wrapMul(truncate(v), 65536), truncate(u)), std::min(truncate(shade), darkest)};
}

Sample samplePlane(const Vector3& ray, float distance) {
    const double x = ray[0];
    const double y = ray[1];
    const double z = ray[2];
    if (y >= -0.002 && y <= 0.002)
        return {0, darkest};
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
        return {0, darkest}; // along the axis the tunnel has no end
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

// The step of one pixel, to be subtracted. The shift stands for the 16 columns of a cell of the 512-pixel frame.
FieldValue pixelStep(const FieldValue& left, const FieldValue& right) {
    return combine(left, right, [](std::int32_t a, std::int32_t b) { return wrapSub(a, b) >> 4; });
}

struct Cell {
    std::int32_t x;
    std::int32_t y;
    std::int32_t width;
    std::int32_t height; // the sides are divided into so many steps
    std::size_t topLeft; // ray
};

void fillCell(const RayField& field, const Cell& cell, Pixel32* target, FrameInfo info) {
    const std::size_t below = cell.topLeft + static_cast<std::size_t>(field.gridWidth);
    FieldValue left = corner(field, cell.topLeft);
    FieldValue right = corner(field, cell.topLeft + 1);
    const FieldValue leftStep = rowStep(left, corner(field, below), cell.height);
    const FieldValue rightStep = rowStep(right, corner(field, below + 1), cell.height);
    const auto fillRow = vectorCode() ? fillFieldRowVector : fillFieldRow;
    const std::int32_t width = std::min(cell.width, info.width - cell.x);
    const std::int32_t end = std::min(cell.y + cell.height, info.height);
    for (std::int32_t row = cell.y; row < end; ++row) {
        fillRow(target + static_cast<std::ptrdiff_t>(row) * info.width + cell.x, width, left, pixelStep(left, right),
                field.texture);
        left = combine(left, leftStep, wrapAdd);
        right = combine(right, rightStep, wrapAdd);
    }
}

} // namespace

void fillFieldRow(Pixel32* pixels, std::int32_t count, FieldValue left, FieldValue step, const Pixel32* texture) {
    FieldValue value = left;
    for (std::int32_t i = 0; i < count; ++i) {
        const Pixel32 texel = texture[((value.v >> 16) & 255) * 256 + ((value.u >> 16) & 255)];
        const auto shade = static_cast<std::uint32_t>(value.shade >> 16) & 255;
        pixels[i] = subtractSaturated(texel, shade * 0x00010101);
        value = combine(value, step, wrapSub);
    }
}

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
    const std::int32_t width = info.width / columns;
    const std::int32_t height = info.height / rows;
    if (width < 1 || height < 1 || field.texture == nullptr)
        return;
    std::int32_t y = 0;
    for (std::int32_t k = 0; k < field.gridHeight - 1 && y < info.height; ++k) {
        std::int32_t x = 0;
        for (std::int32_t c = 0; c < field.gridWidth - 1 && x < info.width; ++c) {
            const std::size_t ray =
                static_cast<std::size_t>(k) * static_cast<std::size_t>(field.gridWidth) + static_cast<std::size_t>(c);
            fillCell(field, {x, y, width, height, ray}, target, info);
            x = truncate(x + info.width * 0.03125);
        }
        y = truncate(y + info.height * 0.041666666666666664);
    }
}

} // namespace lumenfold
