#pragma once

#include "forge/maths.h"

#include <type_traits>

// Signed distances to simple bodies, negative inside, and ways to join them. The formulas are those that I. Quilez
// collected; every result is exact or a lower bound, as sphere tracing needs.

namespace lumenfold::art::sdf {

template <typename T>
T sphere(Vector3<T> p, std::type_identity_t<T> radius) {
    return length(p) - radius;
}

// half: half the side lengths, the rounding included.
template <typename T>
T box(Vector3<T> p, std::type_identity_t<Vector3<T>> half, std::type_identity_t<T> rounding = 0) {
    const Vector3<T> q = {std::fabs(p.x) - half.x + rounding, std::fabs(p.y) - half.y + rounding,
                          std::fabs(p.z) - half.z + rounding};
    const Vector3<T> outside = {std::max(q.x, T{}), std::max(q.y, T{}), std::max(q.z, T{})};
    return length(outside) + std::min(largest(q), T{}) - rounding;
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

template <typename T>
T torus(Vector3<T> p, std::type_identity_t<T> radius, std::type_identity_t<T> thickness) { // about the z axis
    return length(length(p.x, p.y) - radius, p.z) - thickness;
}

template <typename T>
T ellipsoid(Vector3<T> p, std::type_identity_t<Vector3<T>> radii) {
    const T k0 = length(Vector3<T>{p.x / radii.x, p.y / radii.y, p.z / radii.z});
    const T k1 = length(Vector3<T>{p.x / (radii.x * radii.x), p.y / (radii.y * radii.y), p.z / (radii.z * radii.z)});
    return k0 * (k0 - 1) / std::max(k1, T(1e-6));
}

// A round cone from one point to another.
template <typename T>
T capsule(Vector3<T> p, std::type_identity_t<Vector3<T>> from, std::type_identity_t<Vector3<T>> to,
          std::type_identity_t<T> radiusFrom, std::type_identity_t<T> radiusTo) {
    const Vector3<T> along = to - from;
    const T t = std::clamp(dot(p - from, along) / std::max(dot(along, along), T(1e-12)), T{0}, T{1});
    return length(p - (from + along * t)) - mix(radiusFrom, radiusTo, t);
}
template <typename T>
T capsule(Vector3<T> p, std::type_identity_t<Vector3<T>> from, std::type_identity_t<Vector3<T>> to,
          std::type_identity_t<T> radius) {
    return capsule(p, from, to, radius, radius);
}

// About the y axis.
inline float cylinder(Vec3 p, float radius, float halfHeight, float rounding = 0) {
    return rectangle(length(p.x, p.z), p.y, radius - rounding, halfHeight - rounding) - rounding;
}

// Joined with a fillet of about `radius`, and with the same softness one cut out of the other, and what both have.
template <typename T>
T smoothUnion(T a, T b, std::type_identity_t<T> radius) {
    const T h = std::clamp(T(0.5) + T(0.5) * (b - a) / radius, T{0}, T{1});
    return b * (1 - h) + a * h - radius * h * (1 - h);
}
template <typename T>
T smoothCut(T body, T tool, std::type_identity_t<T> radius) {
    return -smoothUnion(-body, tool, radius);
}
template <typename T>
T smoothCommon(T a, T b, std::type_identity_t<T> radius) {
    return -smoothUnion(-a, -b, radius);
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
