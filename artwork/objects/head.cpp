// The head: two faces with closed eyes that look forwards and backwards over one neck, as one solid of signed
// distances; mirrored in x and z, about 1.7 high before scaling. What colours it is chosen by the scene.

#include "artwork/objects/objects.h"
#include "forge/isosurface.h"
#include "forge/sdf.h"
#include "forge/shapes.h"

#include <algorithm>
#include <cmath>

namespace lumenfold::art {

namespace {

using namespace sdf;

// Every part takes the point with the face towards +z; m is mirrored to x >= 0.
double skull(Point p, Point m) {
    double d = ellipsoid(p - Point{0, 0.60, -0.06}, {0.372, 0.415, 0.430});
    d = smoothUnion(d, ellipsoid(p - Point{0, 0.52, 0.12}, {0.318, 0.34, 0.30}), 0.12);            // forehead
    d = smoothUnion(d, ellipsoid(p - Point{0, 0.22, 0.13}, {0.262, 0.36, 0.315}), 0.13);           // face
    d = smoothUnion(d, capsule(m, {0.12, -0.075, 0.25}, {0.262, 0.15, 0.0}, 0.062, 0.058), 0.11);  // jaw
    d = smoothUnion(d, ellipsoid(p - Point{0, -0.105, 0.325}, {0.115, 0.075, 0.085}), 0.09);       // chin
    return smoothUnion(d, ellipsoid(m - Point{0.212, 0.262, 0.265}, {0.085, 0.062, 0.085}), 0.10); // cheekbone
}

double features(double d, Point p, Point m) {
    d = smoothUnion(d, capsule(m, {0.045, 0.452, 0.400}, {0.225, 0.478, 0.290}, 0.040, 0.030), 0.075); // brow
    d = smoothCut(d, ellipsoid(m - Point{0.136, 0.372, 0.462}, {0.092, 0.060, 0.105}), 0.065);         // socket
    d = smoothUnion(d, ellipsoid(m - Point{0.138, 0.362, 0.330}, {0.074, 0.056, 0.062}), 0.016);       // closed eye
    const double lid = capsule(m, {0.078, 0.343, 0.385}, {0.200, 0.347, 0.352}, 0.011, 0.008);
    d = smoothCut(d, lid, 0.012); // the crease where the lids meet
    d = smoothUnion(d, capsule(p, {0, 0.445, 0.405}, {0, 0.232, 0.500}, 0.030, 0.046), 0.050); // nose
    d = smoothUnion(d, sphere(p - Point{0, 0.215, 0.512}, 0.038), 0.035);
    d = smoothUnion(d, ellipsoid(m - Point{0.048, 0.205, 0.462}, {0.032, 0.030, 0.042}), 0.022);
    d = smoothCut(d, capsule(p, {0, 0.180, 0.447}, {0, 0.140, 0.437}, 0.010, 0.012), 0.02);            // philtrum
    d = smoothUnion(d, capsule(m, {0.012, 0.112, 0.436}, {0.088, 0.086, 0.392}, 0.027, 0.012), 0.020); // lips
    d = smoothUnion(d, capsule(m, {0.0, 0.058, 0.430}, {0.070, 0.074, 0.397}, 0.031, 0.014), 0.020);
    d = smoothCut(d, capsule(m, {0, 0.086, 0.462}, {0.098, 0.078, 0.402}, 0.007, 0.006), 0.012);
    d = smoothCut(d, ellipsoid(p - Point{0, 0.004, 0.440}, {0.075, 0.024, 0.045}), 0.035); // under the lip
    return d;
}

double ear(double d, Point m) {
    d = smoothUnion(d, ellipsoid(m - Point{0.362, 0.335, -0.045}, {0.034, 0.118, 0.078}), 0.025);
    d = smoothCut(d, ellipsoid(m - Point{0.395, 0.345, -0.030}, {0.022, 0.072, 0.040}), 0.02);
    return smoothUnion(d, sphere(m - Point{0.352, 0.225, -0.020}, 0.030), 0.025);
}

// The neck ends below in a shallow bowl.
double neck(Point p, Point m) {
    double d = capsule(p, {0, 0.10, 0}, {0, -0.36, 0}, 0.250, 0.270);
    d = smoothUnion(d, capsule(m, {0.265, 0.12, 0.02}, {0.06, -0.46, 0.20}, 0.046, 0.048), 0.06); // neck muscle
    d = smoothUnion(d, ellipsoid(p - Point{0, -0.04, 0.20}, {0.055, 0.10, 0.06}), 0.09);          // throat
    return smoothCommon(d, ellipsoid(p - Point{0, 0.10, 0}, {0.60, 0.56, 0.60}), 0.08);
}

// Both halves show a face; m is mirrored to x >= 0 as well.
double twoFaces(Point q) {
    const Point p{q.x, q.y, std::sqrt(q.z * q.z + 0.004)};
    const Point m{std::fabs(p.x), p.y, p.z};
    return smoothUnion(ear(features(skull(p, m), p, m), m), neck(p, m), 0.055);
}

} // namespace

Model headOf(std::size_t triangles, double scale) {
    Model model = meshSolid(twoFaces, {-0.62, -0.80, -0.75}, {0.62, 1.15, 0.75}, triangles > 2000 ? 0.0165 : 0.026);
    simplify(model, triangles);
    for (Point& point : model.points)
        point = (point - Point{0, 0.28, 0}) * scale; // about the middle of its height
    return model;
}

Model makeHead() {
    Model model = headOf(5000, 15.5);
    model.addSurface({"skin", {20, 82, 92}, {}, {}});
    return model;
}

} // namespace lumenfold::art
