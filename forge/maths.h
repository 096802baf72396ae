#pragma once

#include "core/trig.h"
#include "forge/vector.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

// Small mathematics of the forge. Everything here gives the same bits on every machine: only
// additions, products, quotients and square roots, and the sine, cosine and arc tangent of core/trig.h.

namespace lumenfold::art {

template <typename T>
T length(T x, std::type_identity_t<T> y) {
    return std::sqrt(x * x + y * y);
}

template <typename T>
constexpr T mix(T a, std::type_identity_t<T> b, std::type_identity_t<T> t) {
    return a + (b - a) * t;
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

double exponential(double x);
double logarithm(double x); // x > 0
inline float exponential(float x) {
    return static_cast<float>(exponential(static_cast<double>(x)));
}
inline float logarithm(float x) {
    return static_cast<float>(logarithm(static_cast<double>(x)));
}

// base to the power exponent; 0 for a base that is not positive.
inline double power(double base, double exponent) {
    return base > 0 ? exponential(exponent * logarithm(base)) : 0;
}
inline float power(float base, float exponent) {
    return base > 0 ? exponential(exponent * logarithm(base)) : 0;
}

// A bell of height 1 and width sigma around 0.
inline float bell(float x, float sigma) {
    return exponential(-0.5F * x * x / (sigma * sigma));
}

} // namespace lumenfold::art
