#pragma once

#include "forge/maths.h"

// Signed distances to simple bodies, negative inside, and ways to join them. The formulas are those that I. Quilez
// collected; every result is exact or a lower bound, as sphere tracing needs.

namespace lumenfold::art::sdf {

inline float sphere(Vec3 p, float radius) {
    return length(p) - radius;
}

// half: half the side lengths, the rounding included.
inline float box(Vec3 p, Vec3 half, float rounding = 0) {
    const Vec3 q = {std::fabs(p.x) - half.x + rounding, std::fabs(p.y) - half.y + rounding,
                    std::fabs(p.z) - half.z + rounding};
    const Vec3 outside = {std::max(q.x, 0.0F), std::max(q.y, 0.0F), std::max(q.z, 0.0F)};
    return length(outside) + std::min(largest(q), 0.0F) - rounding;
}

inline float rectangle(float x, float y, float halfX, float halfY) {
    const float dx = std::fabs(x) - halfX;
    const float dy = std::fabs(y) - halfY;
    return length(std::max(dx, 0.0F), std::max(dy, 0.0F)) + std::min(std::max(dx, dy), 0.0F);
}

// A ring about the z axis with a rectangular section: radial and axial half sizes around `radius`.
inline float ring(Vec3 p, float radius, float halfRadial, float halfAxial, float rounding = 0) {
    const float out = length(p.x, p.y) - radius;
    return rectangle(out, p.z, halfRadial - rounding, halfAxial - rounding) - rounding;
}

inline float torus(Vec3 p, float radius, float thickness) {
    return length(length(p.x, p.y) - radius, p.z) - thickness;
}

inline float capsule(Vec3 p, Vec3 from, Vec3 to, float radius) {
    const Vec3 along = to - from;
    const Vec3 place = p - from;
    return length(place - along * saturate(dot(place, along) / dot(along, along))) - radius;
}

// About the y axis.
inline float cylinder(Vec3 p, float radius, float halfHeight, float rounding = 0) {
    return rectangle(length(p.x, p.z), p.y, radius - rounding, halfHeight - rounding) - rounding;
}

// Joined with a fillet of about `radius`.
inline float smoothUnion(float a, float b, float radius) {
    const float h = saturate(0.5F + 0.5F * (b - a) / radius);
    return mix(b, a, h) - radius * h * (1 - h);
}
inline float smoothCut(float body, float tool, float radius) {
    return -smoothUnion(-body, tool, radius);
}
inline float cut(float body, float tool) {
    return std::max(body, -tool);
}

// The coordinate folded into the middle one of endless copies `spacing` apart, and the number of the copy.
struct Copy {
    float place = 0;
    int index = 0;
};
inline Copy repeated(float x, float spacing) {
    const float index = std::floor(x / spacing + 0.5F);
    return {x - spacing * index, static_cast<int>(index)};
}

// The point turned about the z axis into the first of `count` equal sectors, which lies around the x axis, and the
// number of its sector, 0 to count - 1.
struct Sector {
    Vec3 place;
    int index = 0;
};
inline Sector sectored(Vec3 p, int count) {
    const float step = 2 * pi / static_cast<float>(count);
    const float index = std::floor(angleOf(p.y, p.x) / step + 0.5F);
    const Point2 flat = turned(p.x, p.y, -index * step);
    return {{flat.x, flat.y, p.z}, (static_cast<int>(index) + count) % count};
}

} // namespace lumenfold::art::sdf
