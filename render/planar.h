#pragma once

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

inline void advance(PerspectiveEdges& edges) {
    edges.left += edges.leftStep;
    edges.right += edges.rightStep;
    edges.planar = edges.planar + edges.planarStep;
}

} // namespace lumenfold
