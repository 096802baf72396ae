#include "render/filler_affine.h"

#include "core/convert.h"
#include "render/affine_walk.h"

namespace lumenfold {

namespace {

using End = AffineEnd<1>;
using Run = AffineRun<1>;

SnappedCorner<1> snapped(const AffineCorner& corner) {
    return {truncate(corner.x), truncate(corner.y), corner.z, {{truncate(corner.u1), truncate(corner.v1)}}};
}

void drawSpan(const End& a, const End& b, std::int32_t row, const Pixel32* texture, FrameInfo info, Pixel32* target,
              float depthBias, DrawAffineRun<1> drawRun) {
    Run run;
    run.textures = {{texture}};
    if (makeAffineRun(run, a, b, row, info, target, depthBias))
        drawRun(run);
}

void drawTriangle(const AffineCorner (&corners)[3], const Pixel32* texture, FrameInfo info, Pixel32* target,
                  float depthBias, DrawAffineRun<1> drawRun) {
    walkAffineTriangle<1>({snapped(corners[0]), snapped(corners[1]), snapped(corners[2])}, info.height,
                          [&](const End& a, const End& b, std::int32_t row) {
                              drawSpan(a, b, row, texture, info, target, depthBias, drawRun);
                          });
}

} // namespace

void drawTriangleAffine(const AffineCorner (&corners)[3], const Pixel32* texture, FrameInfo info, Pixel32* target,
                        float depthBias) {
    drawTriangle(corners, texture, info, target, depthBias, drawAffineRun);
}

void drawTriangleAffineAdd(const AffineCorner (&corners)[3], const Pixel32* texture, FrameInfo info, Pixel32* target,
                           float depthBias) {
    drawTriangle(corners, texture, info, target, depthBias, drawAffineRunAdd);
}

void drawSpanAffine(std::int32_t xa, std::int32_t xb, float za, float zb, std::int32_t ua, std::int32_t ub,
                    std::int32_t va, std::int32_t vb, std::int32_t row, const Pixel32* texture, FrameInfo info,
                    Pixel32* target, float depthBias) {
    drawSpan({xa, za, {{ua, va}}}, {xb, zb, {{ub, vb}}}, row, texture, info, target, depthBias, drawAffineRun);
}

void drawSpanAffineAdd(std::int32_t xa, std::int32_t xb, float za, float zb, std::int32_t ua, std::int32_t ub,
                       std::int32_t va, std::int32_t vb, std::int32_t row, const Pixel32* texture, FrameInfo info,
                       Pixel32* target, float depthBias) {
    drawSpan({xa, za, {{ua, va}}}, {xb, zb, {{ub, vb}}}, row, texture, info, target, depthBias, drawAffineRunAdd);
}

} // namespace lumenfold
