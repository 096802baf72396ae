#include "render/clip.h"

#include "core/convert.h"
#include "render/filler_affine.h"
#include "render/filler_perspective.h"
#include "render/line.h"

#include <algorithm>
#include <array>

namespace lumenfold {

namespace {

constexpr double nearPlane = 0.2;
constexpr double farLimit = 90.0;

// Replaces a corner of the cut face by the point where the edge from corner `outside` to corner `inside` of the whole
// face crosses the near plane. A crossing point has no normal; its second coordinate set stays the replaced corner's.
void cutEdge(const MeshFace& whole, std::size_t outside, std::size_t inside, MeshFace& cut, std::size_t slot,
             MeshVertex& crossing) {
    const MeshVertex& o = *whole.corners[outside];
    const MeshVertex& i = *whole.corners[inside];
    const float t = static_cast<float>((nearPlane - o.z) / (i.z - o.z));
    crossing.x = o.x + (i.x - o.x) * t;
    crossing.y = o.y + (i.y - o.y) * t;
    crossing.z = static_cast<float>(nearPlane);
    cut.corners[slot] = &crossing;
    for (std::size_t k = 0; k < 2; ++k) {
        const float from = whole.uv1[2 * outside + k];
        cut.uv1[2 * slot + k] = from + (whole.uv1[2 * inside + k] - from) * t;
    }
}

// Only corner i is in front of the near plane.
void drawTip(const MeshFace& face, std::size_t i, FrameInfo info, Pixel32* target, float depthBias) {
    MeshFace cut = face;
    std::array<MeshVertex, 2> crossings{};
    const std::size_t j = (i + 1) % 3;
    const std::size_t k = (i + 2) % 3;
    cutEdge(face, j, i, cut, j, crossings[0]);
    cutEdge(face, k, i, cut, k, crossings[1]);
    drawTriangle(cut, info, target, depthBias);
}

// Only corner i is behind: what remains has four corners, drawn as two triangles.
void drawStump(const MeshFace& face, std::size_t i, FrameInfo info, Pixel32* target, float depthBias) {
    MeshFace cut = face;
    std::array<MeshVertex, 2> crossings{};
    const std::size_t j = (i + 1) % 3;
    const std::size_t k = (i + 2) % 3;
    cutEdge(face, i, j, cut, i, crossings[0]);
    drawTriangle(cut, info, target, depthBias);

    // The second one moves the first crossing to slot j; corner k keeps its slot.
    cut.corners[j] = &crossings[0];
    cut.uv1[2 * j] = cut.uv1[2 * i];
    cut.uv1[2 * j + 1] = cut.uv1[2 * i + 1];
    cutEdge(face, i, k, cut, i, crossings[1]);
    drawTriangle(cut, info, target, depthBias);
}

struct ScreenPoint {
    float x;
    float y;
};
using ScreenTriangle = std::array<ScreenPoint, 3>;

ScreenTriangle project(const MeshFace& face, FrameInfo info) {
    const auto width = static_cast<float>(info.width);
    const auto focal = static_cast<float>(width * 0.8);
    const auto centreX = static_cast<float>(width * 0.5);
    const auto centreY = static_cast<float>(static_cast<float>(info.height) * 0.5);
    ScreenTriangle points;
    for (std::size_t i = 0; i < 3; ++i) {
        const MeshVertex& corner = *face.corners[i];
        points[i] = {focal * corner.x / corner.z + centreX, centreY - focal * corner.y / corner.z};
    }
    return points;
}

// Wholly beyond one edge of the screen (a corner on the edge is still on screen), or flat in y.
bool offScreen(const ScreenTriangle& s, FrameInfo info) {
    const auto width = static_cast<float>(info.width);
    const auto height = static_cast<float>(info.height);
    const auto all = [&s](auto condition) { return std::all_of(s.begin(), s.end(), condition); };
    return all([](ScreenPoint p) { return p.x < 0.0F; }) || all([&](ScreenPoint p) { return p.x > width; }) ||
           all([](ScreenPoint p) { return p.y < 0.0F; }) || all([&](ScreenPoint p) { return p.y > height; }) ||
           (s[0].y == s[1].y && s[1].y == s[2].y);
}

// Corners that run clockwise on screen (y grows downwards).
bool facesViewer(const ScreenTriangle& s) {
    return (s[0].y - s[2].y) * (s[1].x - s[0].x) - (s[0].x - s[2].x) * (s[1].y - s[0].y) < 0.0F;
}

void drawOutline(const ScreenTriangle& s, FrameInfo info, Pixel32* target) {
    for (std::size_t i = 0; i < 3; ++i) {
        const ScreenPoint& a = s[i];
        const ScreenPoint& b = s[(i + 1) % 3];
        drawLine(truncate(a.x), truncate(a.y), truncate(b.x), truncate(b.y), target, info.width, info.height);
    }
}

const Pixel32* texelsOf(const std::unique_ptr<TextureLayer>& layer) {
    return layer ? layer->texels : nullptr;
}

// column, row: positions of the texture's column and row in each pair of the first coordinate set.
void perspectiveCorners(const MeshFace& face, const ScreenTriangle& s, std::size_t column, std::size_t row,
                        PerspectiveCorner (&corners)[3]) {
    for (std::size_t i = 0; i < 3; ++i)
        corners[i] = {s[i].x, s[i].y, face.corners[i]->z, face.uv1[2 * i + column], face.uv1[2 * i + row]};
}

void affineCorners(const MeshFace& face, const ScreenTriangle& s, const FaceCoordinates& first,
                   AffineCorner (&corners)[3]) {
    for (std::size_t i = 0; i < 3; ++i) {
        corners[i] = {s[i].x,           s[i].y,          face.corners[i]->z, first[2 * i],
                      first[2 * i + 1], face.uv2[2 * i], face.uv2[2 * i + 1]};
    }
}

// The whole mode word selects the filler; a word that is not listed draws nothing.
void fill(const MeshFace& face, const ScreenTriangle& s, FrameInfo info, Pixel32* target, float depthBias) {
    const MeshMaterial& material = *face.material;
    const Pixel32* texture = texelsOf(material.colourLayer);
    if (texture == nullptr)
        return;
    PerspectiveCorner perspective[3];
    AffineCorner affine[3];
    switch (material.mode) {
    case DrawMode::Perspective:
        perspectiveCorners(face, s, 0, 1, perspective);
        drawTexturedPerspective(perspective, texture, info, target, depthBias);
        break;
    case DrawMode::PerspectiveAdd: // u and v exchanged
        perspectiveCorners(face, s, 1, 0, perspective);
        drawTexturedPerspectiveAdd(perspective, texture, info, target, depthBias, material.scroll);
        break;
    case DrawMode::Affine:
        affineCorners(face, s, face.uv1, affine);
        drawTriangleAffine(affine, texture, info, target, depthBias);
        break;
    case DrawMode::AffineAdd:
        affineCorners(face, s, face.uv1, affine);
        drawTriangleAffineAdd(affine, texture, info, target, depthBias);
        break;
    case DrawMode::Reflection:
        affineCorners(face, s, face.uv2, affine);
        drawTriangleAffine(affine, texture, info, target, depthBias);
        break;
    case DrawMode::TwoLayers:
        if (const Pixel32* second = texelsOf(material.reflectionLayer)) {
            affineCorners(face, s, face.uv1, affine);
            drawTriangleTwoLayer(affine, texture, second, info, target, depthBias);
        }
        break;
    default:
        break;
    }
}

} // namespace

void clipAndDrawFace(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias) {
    const auto behind = [&face](std::size_t i) { return face.corners[i]->z < nearPlane; };
    const auto beyond = [&face](std::size_t i) { return face.corners[i]->z > farLimit; };
    if (beyond(0) && beyond(1) && beyond(2))
        return;
    switch (behind(0) + behind(1) + behind(2)) {
    case 0:
        drawTriangle(face, info, target, depthBias);
        break;
    case 1:
        drawStump(face, behind(0) ? 0 : behind(1) ? 1 : 2, info, target, depthBias);
        break;
    case 2:
        drawTip(face, !behind(0) ? 0 : !behind(1) ? 1 : 2, info, target, depthBias);
        break;
    default:
        break;
    }
}

void drawTriangle(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias) {
    if (face.material == nullptr)
        return;
    if (std::all_of(face.corners.begin(), face.corners.end(), [](const MeshVertex* v) { return v->z < nearPlane; }))
        return;
    const ScreenTriangle points = project(face, info);
    if (offScreen(points, info))
        return;
    if (face.material->doubleSided == 0 && !facesViewer(points))
        return;
    if ((face.material->mode & modeOutline) != 0)
        drawOutline(points, info, target);
    else if ((face.material->mode & modeDrawn) != 0)
        fill(face, points, info, target, depthBias);
}

} // namespace lumenfold
