#pragma once

#include "core/float_sum.h"
#include "render/perspective_rows.h"

// Arithmetic of the perspective filler's planar quantities, lane by lane, in single precision.

namespace lumenfold {

inline Planar operator+(const Planar& a, const Planar& b) {
    return {a.u + b.u, a.v + b.v, a.w + b.w, a.again + b.again};
}
inline Planar operator-(const Planar& a, const Planar& b) {
    return {a.u - b.u, a.v - b.v, a.w - b.w, a.again - b.again};
}
inline Planar operator*(const Planar& a, float factor) {
    return {a.u * factor, a.v * factor, a.w * factor, a.again * factor};
}
inline Planar operator/(const Planar& a, float divisor) {
    return {a.u / divisor, a.v / divisor, a.w / divisor, a.again / divisor};
}

// The edges so many rows further down, as if by single steps.
inline void advance(PerspectiveEdges& edges, std::int64_t rows) {
    edges.left = addRepeatedly(edges.left, edges.leftStep, rows);
    edges.right = addRepeatedly(edges.right, edges.rightStep, rows);
    edges.planar.u = addRepeatedly(edges.planar.u, edges.planarStep.u, rows);
    edges.planar.v = addRepeatedly(edges.planar.v, edges.planarStep.v, rows);
    edges.planar.w = addRepeatedly(edges.planar.w, edges.planarStep.w, rows);
    edges.planar.again = edges.planar.w;
}

} // namespace lumenfold
