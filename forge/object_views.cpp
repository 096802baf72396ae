#include "forge/object_views.h"

#include "core/trig.h"

#include <algorithm>
#include <limits>

namespace lumenfold::art {

namespace {

constexpr double degree = 0.017453292519943295;

struct Face {
    Point corner, side1, side2;
    bool drawn; // has a texture or gets one from its scene
};

std::vector<Face> facesOf(const Mesh& mesh) {
    std::vector<Face> faces;
    for (std::uint32_t i = 0; i < mesh.faceCount; ++i) {
        const MeshFace& face = mesh.faces[i];
        Point p[3];
        for (std::size_t k = 0; k < 3; ++k) {
            const MeshVertex& v = mesh.vertices[face.corners[k]->index];
            p[k] = {static_cast<double>(v.x), static_cast<double>(v.y), static_cast<double>(v.z)};
        }
        faces.push_back(
            {p[0], p[1] - p[0], p[2] - p[0], face.material != nullptr && face.material->colourLayer != nullptr});
    }
    return faces;
}

struct Hit {
    double distance = std::numeric_limits<double>::infinity();
    bool front = false;
};

// Method: T. Moeller and B. Trumbore, Fast, Minimum Storage Ray/Triangle Intersection (1997).
Hit cast(const std::vector<Face>& faces, Point from, Point along) {
    Hit hit;
    for (const Face& face : faces) {
        const Point p = cross(along, face.side2);
        const double det = dot(face.side1, p);
        if (det == 0)
            continue;
        const Point t = from - face.corner;
        const double u = dot(t, p) / det;
        if (u < 0 || u > 1)
            continue;
        const Point q = cross(t, face.side1);
        const double v = dot(along, q) / det;
        if (v < 0 || u + v > 1)
            continue;
        const double distance = dot(face.side2, q) / det;
        if (distance > 0 && distance < hit.distance)
            hit = {distance, face.drawn && dot(along, cross(face.side1, face.side2)) < 0};
    }
    return hit;
}

} // namespace

std::vector<View> tunnelViews(int step) {
    std::vector<View> views;
    for (int lt = 0; lt <= 290; lt += step)
        views.push_back({{-0.7, -0.5, lt * 0.08 - 14}, 0, 0});
    for (int s = 0; s <= 360; s += s < 40 ? std::min(step, 4) : step) {
        const double turn = std::max(-0.065 * s * s, -90.0);
        views.push_back({{s * trig::cos((turn + 90) * degree) * 0.05 - 0.7, -0.5, 16}, turn, 0});
    }
    return views;
}

std::vector<View> hallViews(int step) {
    std::vector<View> views;
    for (int lt = 0; lt <= 389; lt += step) {
        const double rise = (lt * 0.008) * (lt * 0.01) * (lt * 0.009) - 1 - std::max(lt - 300, 0) * 0.4;
        views.push_back({{0, rise, std::min(lt * 0.1 - 4, 32.0)}, 0, std::max(-lt * 0.25, -90.0)});
    }
    return views;
}

std::vector<View> flightViews(int step) {
    std::vector<View> views;
    double x = 6.5;
    for (int lt = 0; lt <= 460; lt += step) {
        const double s = trig::sin(lt * 0.01);
        if (x < 13.7)
            x = s * s * 7.5 + 6.5;
        views.push_back({{x, 2.5, s * 8 - 10 + lt * 0.04}, lt * -0.8, 0});
    }
    return views;
}

ViewAxes axesOf(const View& view) {
    const double st = trig::sin(view.turn * degree);
    const double ct = trig::cos(view.turn * degree);
    const double sa = trig::sin(view.tilt * degree);
    const double ca = trig::cos(view.tilt * degree);
    const Point right{ct, 0, st};
    const Point ahead{-st * ca, sa, ct * ca};
    return {right, cross(ahead, right), ahead};
}

Sight lookAround(const Mesh& mesh, const std::vector<View>& views, double height) {
    const std::vector<Face> faces = facesOf(mesh);
    Sight sight;
    sight.nearest = std::numeric_limits<double>::infinity();
    for (const View& view : views) {
        const auto [right, up, ahead] = axesOf(view);
        // an odd step keeps the rays off seams that lie in a coordinate plane
        for (double i = -0.97; i <= 1; i += 0.1773)
            for (double k = -0.97; k <= 1; k += 0.2431) {
                const Hit hit = cast(faces, view.place, ahead + right * (i * halfFrameWidth) + up * (k * height));
                if (hit.distance > 1e6)
                    ++sight.open;
                else if (!hit.front)
                    ++sight.behind;
                sight.nearest = std::min(sight.nearest, hit.distance);
            }
    }
    return sight;
}

} // namespace lumenfold::art
