#include "effects/tube.h"

#include "core/convert.h"
#include "core/packed.h"
#include "core/trig.h"
#include "render/depth_buffer.h"

#include <algorithm>
#include <cmath>

namespace lumenfold {

namespace {

constexpr double radiansPerDegree = 0.017453277777777776; // 3.14159 / 180

// What breathes, in single precision.
struct Breath {
    float turn;        // of the whole tube, degrees
    float twist;       // from ring to ring, degrees
    float ripplePhase; // degrees
    float rippleStep;  // from ring to ring, degrees
    float rippleSize;
    float radius;
};

Breath breathAt(float time) {
    return {static_cast<float>((trig::sin(0.2 * time) + 1) * 30), static_cast<float>((trig::sin(0.1 * time) + 1) * 0.6),
            static_cast<float>((trig::sin(0.2 * time) + 1) * 20), static_cast<float>(trig::sin(0.15 * time) + 1),
            static_cast<float>(trig::sin(0.3 * time) + 3),        20.0F};
}

// One end of a segment on the screen.
struct SpanEnd {
    std::int32_t x;     // column
    std::int32_t shade; // 0 to 255, added to the texture
};

SpanEnd projectPoint(const TubePoint& point, float distance) {
    const float squared = point.x * point.x + point.z * point.z;
    const float facing = -(point.z / std::sqrt(squared)); // the outward direction against the viewer's (0, 0, -1)
    const double light = squared * squared * 0.0004 + facing * 40;
    return {truncate(point.x * 256 / (distance + point.z) + 100), std::clamp(wrapSub(truncate(light), 64), 0, 255)};
}

// The values that step along a span.
struct SpanWalk {
    std::int32_t shade, shadeStep; // 16.16
    std::int32_t u, uStep;         // 16.16, from 0 at the span's start
    float depth, depthStep;

    void step() {
        shade = wrapAdd(shade, shadeStep);
        u = wrapAdd(u, uStep);
        depth += depthStep;
    }
};

SpanWalk startWalk(const TubePoint& p, const TubePoint& q, const SpanEnd& from, const SpanEnd& to, float depthBase) {
    const std::int32_t length = to.x - from.x;
    return {toFixed16(from.shade),
            wrapSub(toFixed16(to.shade), toFixed16(from.shade)) / length,
            0,
            wrapSub(toFixed16(q.u), toFixed16(p.u)) / length,
            depthBase + 1 / p.z,
            (1 / q.z - 1 / p.z) / static_cast<float>(length)};
}

// One row of the frame and of the depth buffer.
struct Row {
    Pixel32* pixels;
    float* depth;
    int width;
    int texelOffset; // of the row of the texture that this ring shows
};

void drawSegment(const TubePoint& p, const TubePoint& q, const SpanEnd& from, const SpanEnd& to, const Pixel32* texture,
                 const Row& row, float depthBase) {
    constexpr std::int64_t longest = 0xFFFF; // a segment that reaches the eye is left out
    if (from.x >= to.x || std::int64_t{to.x} - from.x > longest)
        return;
    SpanWalk walk = startWalk(p, q, from, to, depthBase);
    const std::int32_t end = std::min(to.x, row.width);
    for (std::int32_t x = from.x; x < end; ++x, walk.step()) {
        if (x < 0 || !(row.depth[x] < walk.depth))
            continue;
        const std::uint32_t texel = static_cast<std::uint32_t>(wrapAdd(p.u, (walk.u >> 16) + row.texelOffset)) & 0xFFFF;
        const std::uint32_t shade = static_cast<std::uint32_t>(walk.shade >> 16);
        row.pixels[x] = addSaturated(texture[texel], shade | shade << 8 | shade << 16);
        row.depth[x] = walk.depth;
    }
}

} // namespace

void buildTube(Tube& tube, float time) {
    const Breath breath = breathAt(time);
    int ring = 0;
    for (auto point = tube.points.begin(); point != tube.points.end(); ++ring) {
        const double spread = 2 * std::fabs(trig::sin(0.0083 * ring));
        const double swell =
            trig::sin((static_cast<float>(ring) * breath.rippleStep + breath.ripplePhase) * radiansPerDegree);
        const double twist = static_cast<float>(ring) * breath.twist;
        for (int corner = 0; corner < Tube::corners; ++corner, ++point) {
            const double radius =
                trig::sin(60 * corner * spread * radiansPerDegree) * breath.rippleSize * swell + breath.radius;
            const double angle = (60 * corner + twist + breath.turn) * radiansPerDegree;
            point->x = static_cast<float>(trig::cos(angle) * radius);
            point->z = static_cast<float>(trig::sin(angle) * radius);
        }
    }
}

void mapTube(Tube& tube) {
    for (TubePoint& point : tube.points)
        point.u = truncate(std::fabs(trig::atan2(point.x, point.z)) * 40.58454476873176);
}

// The last corner joins the first one of the ring below, so that the tube closes as a helix; the last ring stays open.
void drawTube(const Tube& tube, const Pixel32* texture, std::uint32_t zoomDistance, Pixel32* frame, FrameInfo info,
              float depthBase) {
    const float distance = static_cast<float>(zoomDistance);
    const std::vector<TubePoint>& points = tube.points;
    if (points.empty())
        return;
    SpanEnd from = projectPoint(points[0], distance);
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const SpanEnd to = projectPoint(points[i + 1], distance);
        const int ring = static_cast<int>(i / Tube::corners);
        const std::ptrdiff_t start = std::ptrdiff_t{ring} * info.width;
        const Row row{frame + start, depthBuffer + start, info.width, 256 * ring};
        drawSegment(points[i], points[i + 1], from, to, texture, row, depthBase);
        from = to;
    }
}

} // namespace lumenfold
