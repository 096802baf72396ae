#include "clip_reference.h"

#include "core/convert.h"
#include "render/filler_affine.h"
#include "render/filler_perspective.h"

#include <cmath>
#include <cstdlib>

namespace lumenfold::reference {

namespace {

// A corner of a cut polygon with its own first coordinate set.
struct Point {
    MeshVertex vertex;
    float u, v;
};

Point cornerOf(const MeshFace& face, int i) {
    return {*face.corners[static_cast<std::size_t>(i)], face.uv1[static_cast<std::size_t>(2 * i)],
            face.uv1[static_cast<std::size_t>(2 * i + 1)]};
}

Point crossing(const Point& outside, const Point& inside) {
    const float t = static_cast<float>((0.2 - static_cast<double>(outside.vertex.z)) /
                                       static_cast<double>(inside.vertex.z - outside.vertex.z));
    Point point{};
    point.vertex.x = outside.vertex.x + (inside.vertex.x - outside.vertex.x) * t;
    point.vertex.y = outside.vertex.y + (inside.vertex.y - outside.vertex.y) * t;
    point.vertex.z = 0.2F;
    point.u = outside.u + (inside.u - outside.u) * t;
    point.v = outside.v + (inside.v - outside.v) * t;
    return point;
}

void drawPoints(const MeshFace& face, Point (&points)[3], FrameInfo info, Pixel32* target, float depthBias) {
    MeshFace cut = face;
    for (std::size_t i = 0; i < 3; ++i) {
        cut.corners[i] = &points[i].vertex;
        cut.uv1[2 * i] = points[i].u;
        cut.uv1[2 * i + 1] = points[i].v;
    }
    drawTriangle(cut, info, target, depthBias);
}

} // namespace

void clipAndDrawFace(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias) {
    int behind = 0;
    int beyond = 0;
    for (const MeshVertex* corner : face.corners) {
        behind += static_cast<double>(corner->z) < 0.2;
        beyond += static_cast<double>(corner->z) > 90.0;
    }
    if (behind == 3 || beyond == 3)
        return;
    Point corners[3] = {cornerOf(face, 0), cornerOf(face, 1), cornerOf(face, 2)};
    if (behind == 0) {
        drawPoints(face, corners, info, target, depthBias);
        return;
    }
    if (behind == 2) {
        Point points[3] = {corners[0], corners[1], corners[2]};
        for (int i = 0; i < 3; ++i) {
            if (corners[i].vertex.z < 0.2)
                continue;
            points[(i + 1) % 3] = crossing(corners[(i + 1) % 3], corners[i]);
            points[(i + 2) % 3] = crossing(corners[(i + 2) % 3], corners[i]);
        }
        drawPoints(face, points, info, target, depthBias);
        return;
    }
    for (int i = 0; i < 3; ++i) {
        if (!(corners[i].vertex.z < 0.2))
            continue;
        const int j = (i + 1) % 3;
        const int k = (i + 2) % 3;
        const Point in = crossing(corners[i], corners[j]);
        const Point ip = crossing(corners[i], corners[k]);
        Point first[3] = {corners[0], corners[1], corners[2]};
        first[i] = in;
        drawPoints(face, first, info, target, depthBias);
        Point second[3];
        second[k] = corners[k];
        second[i] = ip;
        second[j] = in;
        drawPoints(face, second, info, target, depthBias);
    }
}

void drawTriangle(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias) {
    const float w = static_cast<float>(info.width);
    const float h = static_cast<float>(info.height);
    const float f = static_cast<float>(static_cast<double>(w) * 0.8);
    const float cx = w * 0.5F;
    const float cy = h * 0.5F;
    float sx[3];
    float sy[3];
    for (int i = 0; i < 3; ++i) {
        const MeshVertex& corner = *face.corners[static_cast<std::size_t>(i)];
        sx[i] = f * corner.x / corner.z + cx;
        sy[i] = cy - f * corner.y / corner.z;
    }
    if (sx[0] < 0 && sx[1] < 0 && sx[2] < 0)
        return;
    if (sx[0] > w && sx[1] > w && sx[2] > w)
        return;
    if (sy[0] < 0 && sy[1] < 0 && sy[2] < 0)
        return;
    if (sy[0] > h && sy[1] > h && sy[2] > h)
        return;
    if (sy[0] == sy[1] && sy[1] == sy[2])
        return;
    const MeshMaterial& material = *face.material;
    if (material.doubleSided == 0) {
        const float d = (sy[0] - sy[2]) * (sx[1] - sx[0]) - (sx[0] - sx[2]) * (sy[1] - sy[0]);
        if (!(d < 0))
            return;
    }
    if (material.mode & 0x200) {
        for (int i = 0; i < 3; ++i) {
            const int n = (i + 1) % 3;
            drawLine(truncate(sx[i]), truncate(sy[i]), truncate(sx[n]), truncate(sy[n]), target, info.width,
                     info.height);
        }
        return;
    }
    PerspectiveCorner straight[3];
    PerspectiveCorner exchanged[3];
    AffineCorner affine[3];
    AffineCorner reflected[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const float z = face.corners[i]->z;
        const float u1 = face.uv1[2 * i];
        const float v1 = face.uv1[2 * i + 1];
        const float u2 = face.uv2[2 * i];
        const float v2 = face.uv2[2 * i + 1];
        straight[i] = {sx[i], sy[i], z, u1, v1};
        exchanged[i] = {sx[i], sy[i], z, v1, u1};
        affine[i] = {sx[i], sy[i], z, u1, v1, u2, v2};
        reflected[i] = {sx[i], sy[i], z, u2, v2, u2, v2};
    }
    const Pixel32* first = material.colourLayer->texels;
    const Pixel32* second = material.reflectionLayer->texels;
    if (material.mode == 0x09)
        drawTexturedPerspective(straight, first, info, target, depthBias);
    if (material.mode == 0x29)
        drawTexturedPerspectiveAdd(exchanged, first, info, target, depthBias, material.scroll);
    if (material.mode == 0x401)
        drawTriangleAffine(affine, first, info, target, depthBias);
    if (material.mode == 0x501)
        drawTriangleAffineAdd(affine, first, info, target, depthBias);
    if (material.mode == 0x11)
        drawTriangleAffine(reflected, first, info, target, depthBias);
    if (material.mode == 0x19)
        drawTriangleTwoLayer(affine, first, second, info, target, depthBias);
}

void drawLine(int x0, int y0, int x1, int y1, Pixel32* target, int width, int height) {
    const long dx = static_cast<long>(x1) - x0;
    const long dy = static_cast<long>(y1) - y0;
    const int stepX = (dx > 0) - (dx < 0);
    const int stepY = (dy > 0) - (dy < 0);
    const bool flat = std::labs(dx) > std::labs(dy);
    const long major = flat ? std::labs(dx) : std::labs(dy);
    const long minor = flat ? std::labs(dy) : std::labs(dx);
    long x = x0;
    long y = y0;
    long err = major / 2;
    for (long n = 0; n < major + 1; ++n) {
        if (x >= 0 && x < width && y >= 0 && y < height)
            target[y * width + x] = 0xFFFFFFFF;
        err += minor;
        if (err >= major) {
            err -= major;
            x += stepX;
            y += stepY;
        } else if (flat) {
            x += stepX;
        } else {
            y += stepY;
        }
    }
}

} // namespace lumenfold::reference
