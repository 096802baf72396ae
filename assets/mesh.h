#pragma once

#include "assets/draw_mode.h"
#include "core/pixel.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lumenfold {

using Vector3 = std::array<float, 3>;
using Matrix = std::array<float, 16>; // 4 x 4, row-major, used with row vectors

struct MeshVertex {
    float x, y, z;
    float nx, ny, nz;    // unit vertex normal; zero for objects read plainly
    std::uint32_t index; // own position in its array (set in Mesh::transformed)
};

struct TextureLayer {
    std::uint32_t axis = 0;    // 1 X, 2 Y, 4 Z
    std::uint32_t mapping = 0; // 1 planar, 2 cylindrical, 3 spherical
    Vector3 size{};
    Vector3 centre{};
    std::uint16_t wrapWidth = 0;
    std::uint16_t wrapHeight = 0;
    std::string imageName;
    Pixel32* texels = nullptr; // 256 x 256, owned by the texture cache or by the scene that put it here
};

struct MeshMaterial {
    std::string name;
    std::array<std::uint8_t, 3> colour{}; // red, green, blue
    std::uint32_t doubleSided = 0;        // 0: faces that look away are not drawn
    std::uint32_t mode = 0;               // a DrawMode, or bits for which nothing is drawn
    std::unique_ptr<TextureLayer> colourLayer;
    std::unique_ptr<TextureLayer> reflectionLayer;
    std::unique_ptr<TextureLayer> transparencyLayer;
    std::int32_t scroll = 0; // texels added to the column in mode PerspectiveAdd
    std::uint16_t transparency = 0;
};

// Texture coordinates (u, v) of the three corners, in texels.
using FaceCoordinates = std::array<float, 6>;

struct MeshFace {
    std::array<MeshVertex*, 3> corners{}; // into Mesh::transformed
    Vector3 normal{};                     // unit, object space
    FaceCoordinates uv1{};                // colour layer
    FaceCoordinates uv2{};                // reflection layer; the renderer rewrites it for environment maps
    FaceCoordinates uv3{};                // transparency layer
    MeshMaterial* material = nullptr;
    std::int32_t surface = 0; // zero-based
};

// One loaded object. Owns everything but the textures. Not copyable: the faces point into its arrays.
struct Mesh {
    std::vector<MeshVertex> vertices;    // object space; written by the loaders only
    std::vector<MeshVertex> transformed; // camera space, normals in world space; rewritten by every draw
    std::vector<MeshFace> faces;
    std::vector<MeshMaterial> materials;
    std::uint32_t vertexCount = 0;
    std::uint32_t faceCount = 0; // faces in use
    std::uint32_t materialCount = 0;
    Vector3 spin{};       // degrees a, b, c by which every draw turns the object further
    Matrix orientation{}; // identity after reading
    Vector3 scale{};      // set by scenes, not read by the renderer
    Vector3 position{};   // world

    Mesh() = default;
    Mesh(const Mesh&) = delete;
    Mesh& operator=(const Mesh&) = delete;
};

} // namespace lumenfold
