// Rules for the finished objects, read through the demo's own reader.

#include "assets/lightwave.h"
#include "assets/mesh.h"
#include "forge/checks.h"
#include "forge/manifest.h"
#include "forge/object_views.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double wide = 1e9;

std::string load(const std::string& name, Mesh& mesh) {
    std::ifstream in(name, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::ostringstream commentary;
    readLightWaveObject(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size(), mesh, 1, commentary);
    return mesh.faceCount == 0 ? "holds no triangles" : "";
}

Point pointOf(const MeshVertex& v) {
    return {static_cast<double>(v.x), static_cast<double>(v.y), static_cast<double>(v.z)};
}

struct Bounds {
    Point low{wide, wide, wide};
    Point high{-wide, -wide, -wide};
    void add(Point p) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
};

// The bounds of one surface's faces, or of all for -1.
Bounds boundsOf(const Mesh& mesh, int surface) {
    Bounds bounds;
    for (std::uint32_t i = 0; i < mesh.faceCount; ++i)
        if (surface < 0 || mesh.faces[i].surface == surface)
            for (const MeshVertex* corner : mesh.faces[i].corners)
                bounds.add(pointOf(mesh.vertices[corner->index]));
    return bounds;
}

// How many edges are not passed once in each direction (or equally often): holes and faces inside out.
int openEdges(const Mesh& mesh) {
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> balance;
    for (std::uint32_t i = 0; i < mesh.faceCount; ++i)
        for (std::size_t k = 0; k < 3; ++k) {
            const std::uint32_t a = mesh.faces[i].corners[k]->index;
            const std::uint32_t b = mesh.faces[i].corners[(k + 1) % 3]->index;
            balance[{std::min(a, b), std::max(a, b)}] += a < b ? 1 : -1;
        }
    return static_cast<int>(std::count_if(balance.begin(), balance.end(), [](const auto& e) { return e.second != 0; }));
}

// Six times the volume that closed faces enclose; positive where they look outwards.
double volume(const Mesh& mesh) {
    double sum = 0;
    for (std::uint32_t i = 0; i < mesh.faceCount; ++i) {
        const auto& c = mesh.faces[i].corners;
        sum += dot(pointOf(mesh.vertices[c[0]->index]),
                   cross(pointOf(mesh.vertices[c[1]->index]), pointOf(mesh.vertices[c[2]->index])));
    }
    return sum;
}

std::string surfaceFault(const Mesh& mesh) {
    std::set<std::string> names;
    for (const MeshMaterial& material : mesh.materials)
        if (!names.insert(material.name).second)
            return "two surfaces are called " + material.name;
    for (std::uint32_t i = 0; i < mesh.faceCount; ++i)
        for (const float texel : mesh.faces[i].uv1)
            if (std::fabs(texel) >= 32767)
                return "texture coordinates beyond 32767 texels";
    return "";
}

std::string shapeFault(const Mesh& mesh, const ObjectAsset& rule) {
    if (mesh.faceCount < rule.fewest || mesh.faceCount > rule.most)
        return std::to_string(mesh.faceCount) + " triangles";
    const Bounds b = boundsOf(mesh, -1);
    constexpr double slack = 1e-5;
    if (b.low.x < rule.low.x - slack || b.low.y < rule.low.y - slack || b.low.z < rule.low.z - slack ||
        b.high.x > rule.high.x + slack || b.high.y > rule.high.y + slack || b.high.z > rule.high.z + slack)
        return "reaches out of its bounds";
    if (const int open = openEdges(mesh); rule.closed && open > 0)
        return std::to_string(open) + " open edges";
    if (rule.closed && volume(mesh) < 0)
        return "inside out";
    return "";
}

Finding viewFinding(const char* name, const Mesh& mesh, const std::vector<View>& views, double height, double nearest) {
    const Sight sight = lookAround(mesh, views, height);
    char text[96];
    std::snprintf(text, sizeof text, "%d rays meet nothing, %d a back, nearest %.2f", sight.open, sight.behind,
                  sight.nearest);
    return {std::string(name) + " along its camera's way", text,
            sight.open > 0 || sight.behind > 0 || sight.nearest < nearest};
}

// A surface's faces must fill a rectangle exactly.
Finding extentFinding(const char* name, const Mesh& mesh, int surface, Point low, Point high) {
    const Bounds b = boundsOf(mesh, surface);
    const double off = std::max({std::fabs(b.low.x - low.x), std::fabs(b.low.y - low.y), std::fabs(b.high.x - high.x),
                                 std::fabs(b.high.y - high.y)});
    char text[64];
    std::snprintf(text, sizeof text, "off by %.5f", off);
    return {std::string(name) + " surface " + std::to_string(surface), text, off > 1e-5};
}

// Rules of single objects, beyond the table.
void addSpecialFindings(const std::string& name, const Mesh& mesh, std::vector<Finding>& findings) {
    if (name == "mytun_ny1a.lwo") // depth values of the frame before reach one unit ahead
        findings.push_back(viewFinding("mytun_ny1a.lwo", mesh, tunnelViews(), 0.33, 1.0));
    if (name == "prison2.lwo")
        findings.push_back(viewFinding("prison2.lwo", mesh, hallViews(), 0.33, 1.0));
    if (name == "mytube3b.lwo")
        findings.push_back(viewFinding("mytube3b.lwo", mesh, flightViews(), 0.469, 1.0));
    if (name == "svets1.lwo") {
        const Bounds b = boundsOf(mesh, 0);
        findings.push_back(extentFinding("svets1.lwo", mesh, 0, {-2.5, 0.045, 0}, {b.high.x, 3.795, 0}));
    }
    if (name == "svets2.lwo") {
        const Bounds b = boundsOf(mesh, 0);
        findings.push_back(extentFinding("svets2.lwo", mesh, 0, {b.low.x, 0.045, 0}, {2.5, 3.795, 0}));
    }
    if (name == "filmrulle1.lwo") {
        findings.push_back(extentFinding("filmrulle1.lwo", mesh, 0, {-0.25625, -0.192, 0}, {0.25625, 0.192, 0}));
        findings.push_back(extentFinding("filmrulle1.lwo", mesh, 1, {-1.15625, -0.192, 0}, {-0.64375, 0.192, 0}));
        for (const MeshMaterial& material : mesh.materials)
            if (material.colourLayer == nullptr)
                findings.push_back({"filmrulle1.lwo", material.name + " has no colour layer", true});
    }
}

} // namespace

std::vector<Finding> checkObjects(const std::string& folder) {
    std::vector<Finding> findings;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder); // the reader opens the textures there
    for (const Asset& asset : manifest()) {
        const auto* rule = std::get_if<ObjectAsset>(&asset.form);
        if (rule == nullptr)
            continue;
        Mesh mesh;
        std::string fault;
        try {
            fault = load(asset.fileName, mesh);
        } catch (const std::exception& error) {
            fault = error.what();
        }
        if (fault.empty())
            fault = surfaceFault(mesh);
        if (fault.empty())
            fault = shapeFault(mesh, *rule);
        findings.push_back({asset.fileName, fault, !fault.empty()});
        addSpecialFindings(asset.fileName, mesh, findings);
    }
    std::filesystem::current_path(before);
    return findings;
}

} // namespace lumenfold::art
