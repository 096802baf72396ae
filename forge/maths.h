#pragma once

#include "core/trig.h"

#include <algorithm>
#include <cmath>

// Small vector and scalar mathematics of the forge. Everything here gives the same bits on every machine: only
// additions, products, quotients and square roots, and the sine, cosine and arc tangent of core/trig.h.

namespace lumenfold::art {

struct Vec3 {
    float x = 0;
    float y = 0;
    float z = 0;
};

constexpr Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vec3 operator-(Vec3 a) {
    return {-a.x, -a.y, -a.z};
}
constexpr Vec3 operator*(Vec3 a, Vec3 b) {
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
constexpr Vec3 operator*(Vec3 a, float s) {
    return {a.x * s, a.y * s, a.z * s};
}
constexpr Vec3& operator+=(Vec3& a, Vec3 b) {
    return a = a + b;
}

constexpr float dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Vec3 cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline float length(Vec3 a) {
    return std::sqrt(dot(a, a));
}
inline float length(float x, float y) {
    return std::sqrt(x * x + y * y);
}
inline Vec3 normalize(Vec3 a) {
    return a * (1 / std::max(length(a), 1e-20F));
}
constexpr Vec3 reflect(Vec3 direction, Vec3 normal) {
    return direction - normal * (2 * dot(direction, normal));
}
inline float largest(Vec3 a) {
    return std::max({a.x, a.y, a.z});
}

constexpr float mix(float a, float b, float t) {
    return a + (b - a) * t;
}
constexpr Vec3 mix(Vec3 a, Vec3 b, float t) {
    return a * (1 - t) + b * t;
}
constexpr float saturate(float x) {
    return x < 0 ? 0 : x > 1 ? 1 : x;
}

// 0 up to `from`, 1 beyond `to`, an S curve between; falls instead when `to` is the smaller one.
constexpr float smoothStep(float from, float to, float x) {
    const float t = saturate((x - from) / (to - from));
    return t * t * (3 - 2 * t);
}

inline constexpr float pi = 3.14159265F;

inline float sine(float angle) {
    return static_cast<float>(trig::sin(angle));
}
inline float cosine(float angle) {
    return static_cast<float>(trig::cos(angle));
}
inline float angleOf(float y, float x) {
    return static_cast<float>(trig::atan2(y, x));
}

struct Point2 {
    float x = 0;
    float y = 0;
};

// The point (x, y) turned about the origin, counter-clockwise for x right and y up.
inline Point2 turned(float x, float y, float angle) {
    const float c = cosine(angle);
    const float s = sine(angle);
    return {c * x - s * y, s * x + c * y};
}

// e to the power x: x = k ln 2 + r, a polynomial in r.
inline float exponential(float x) {
    if (x < -87) {
        return 0;
    }
    const double k = std::floor(static_cast<double>(std::min(x, 87.0F)) * 1.4426950408889634 + 0.5);
    const double r = std::min(x, 87.0F) - k * 0.6931471805599453;
    double sum = 1;
    for (int n = 11; n >= 1; --n) {
        sum = 1 + sum * r / n;
    }
    return static_cast<float>(std::ldexp(sum, static_cast<int>(k)));
}

// Natural logarithm of x > 0: x = m 2^k, the series of the inverse hyperbolic tangent in (m - 1) / (m + 1).
inline float logarithm(float x) {
    int k = 0;
    double m = std::frexp(static_cast<double>(x), &k);
    if (m < 0.7071067811865476) {
        m *= 2;
        --k;
    }
    const double s = (m - 1) / (m + 1);
    const double s2 = s * s;
    double sum = 0;
    for (int n = 17; n >= 1; n -= 2) {
        sum = sum * s2 + 2.0 / n;
    }
    return static_cast<float>(sum * s + k * 0.6931471805599453);
}

// base to the power exponent; 0 for a base that is not positive.
inline float power(float base, float exponent) {
    return base <= 0 ? 0 : exponential(exponent * logarithm(base));
}

// A bell of height 1 and width sigma around 0.
inline float bell(float x, float sigma) {
    return exponential(-0.5F * x * x / (sigma * sigma));
}

} // namespace lumenfold::art
