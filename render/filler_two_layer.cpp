#include "core/convert.h"
#include "core/kernels.h"
#include "core/packed.h"
#include "render/affine_span.h"
#include "render/affine_walk.h"
#include "render/filler_affine.h"
#include "render/texel.h"

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

void drawPlain(const Run& run) {
    drawRunPlain(run, [&run](const Coordinates<2>& at, Pixel32) {
        const auto fixed = [&at](std::size_t i) { return static_cast<std::uint32_t>(at.of[i]); };
        // v is the column and u the row here
        return addSaturated(texelAt(run.textures.of[0], fixed(1), fixed(0)),
                            texelAt(run.textures.of[1], fixed(3), fixed(2)));
    });
}

AffineLoops<2> twoLayerLoops() {
    return {drawPlain, vectorCode() ? vectorTwoLayerRun() : drawPlain};
}

void drawSpan(const End& a, const End& b, std::int32_t row, const Layers<2>& textures, FrameInfo info, Pixel32* target,
              float depthBias, AffineLoops<2> drawRun) {
    Run run;
    run.textures = textures;
    if (makeAffineRun(run, a, b, row, info, target, depthBias))
        drawRun(run);
}

} // namespace

void drawTriangleTwoLayer(const AffineCorner (&corners)[3], const Pixel32* first, const Pixel32* second, FrameInfo info,
                          Pixel32* target, float depthBias) {
    const AffineLoops<2> drawRun = twoLayerLoops();
    walkAffineTriangle<2>({snapped(corners[0]), snapped(corners[1]), snapped(corners[2])}, info.height,
                          [&](const End& a, const End& b, std::int32_t row) {
                              drawSpan(a, b, row, {{first, second}}, info, target, depthBias, drawRun);
                          });
}

void drawSpanTwoLayer(std::int32_t xa, std::int32_t xb, float za, float zb, const TwoLayerCoordinates& a,
                      const TwoLayerCoordinates& b, std::int32_t row, const Pixel32* first, const Pixel32* second,
                      FrameInfo info, Pixel32* target, float depthBias) {
    drawSpan({xa, za, {{a.u1, a.v1, a.u2, a.v2}}}, {xb, zb, {{b.u1, b.v1, b.u2, b.v2}}}, row, {{first, second}}, info,
             target, depthBias, twoLayerLoops());
}

} // namespace lumenfold
