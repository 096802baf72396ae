#include "core/convert.h"
#include "render/affine_walk.h"
#include "render/filler_affine.h"

namespace lumenfold {

namespace {

using End = AffineEnd<2>;
using Run = AffineRun<2>;

SnappedCorner<2> snapped(const AffineCorner& corner) {
    return {truncate(corner.x),
            truncate(corner.y),
            corner.z,
            {{truncate(corner.u1), truncate(corner.v1), truncate(corner.u2), truncate(corner.v2)}}};
}

void drawSpan(const End& a, const End& b, std::int32_t row, const Layers<2>& textures, FrameInfo info, Pixel32* target,
              float depthBias) {
    Run run;
    run.textures = textures;
    if (makeAffineRun(run, a, b, row, info, target, depthBias))
        drawTwoLayerRun(run);
}

} // namespace

void drawTriangleTwoLayer(const AffineCorner (&corners)[3], const Pixel32* first, const Pixel32* second, FrameInfo info,
                          Pixel32* target, float depthBias) {
    walkAffineTriangle<2>({snapped(corners[0]), snapped(corners[1]), snapped(corners[2])}, info.height,
                          [&](const End& a, const End& b, std::int32_t row) {
                              drawSpan(a, b, row, {{first, second}}, info, target, depthBias);
                          });
}

void drawSpanTwoLayer(std::int32_t xa, std::int32_t xb, float za, float zb, const TwoLayerCoordinates& a,
                      const TwoLayerCoordinates& b, std::int32_t row, const Pixel32* first, const Pixel32* second,
                      FrameInfo info, Pixel32* target, float depthBias) {
    drawSpan({xa, za, {{a.u1, a.v1, a.u2, a.v2}}}, {xb, zb, {{b.u1, b.v1, b.u2, b.v2}}}, row, {{first, second}}, info,
             target, depthBias);
}

} // namespace lumenfold
