#pragma once

#include <algorithm>
#include <cmath>

namespace lumenfold::art {

template <typename T>
struct Vector3 {
    T x = 0;
    T y = 0;
    T z = 0;

    friend constexpr Vector3 operator+(Vector3 a, Vector3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend constexpr Vector3 operator-(Vector3 a, Vector3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr Vector3 operator-(Vector3 a) { return {-a.x, -a.y, -a.z}; }
    friend constexpr Vector3 operator*(Vector3 a, Vector3 b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
    friend constexpr Vector3 operator*(Vector3 a, T s) { return {a.x * s, a.y * s, a.z * s}; }
    friend constexpr Vector3& operator+=(Vector3& a, Vector3 b) { return a = a + b; }

    friend constexpr T dot(Vector3 a, Vector3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
    friend constexpr Vector3 cross(Vector3 a, Vector3 b) {
        return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    }
    friend T length(Vector3 a) { return std::sqrt(dot(a, a)); }
    friend Vector3 normalize(Vector3 a) { return a * (1 / std::max(length(a), T(1e-20))); }
    friend constexpr Vector3 reflect(Vector3 direction, Vector3 normal) {
        return direction - normal * (2 * dot(direction, normal));
    }
    friend T largest(Vector3 a) { return std::max({a.x, a.y, a.z}); }
    friend constexpr Vector3 mix(Vector3 a, Vector3 b, T t) { return a * (1 - t) + b * t; }
};

using Vec3 = Vector3<float>;   // pictures
using Point = Vector3<double>; // objects

} // namespace lumenfold::art
