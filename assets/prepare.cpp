#include "assets/prepare.h"

#include "assets/image.h"
#include "assets/lightwave.h"

#include <cmath>

namespace lumenfold {

namespace {

constexpr std::uint32_t readerModeBits = 4;

const MeshVertex& objectVertex(const Mesh& mesh, const MeshFace& face, std::size_t corner) {
    return mesh.vertices[face.corners[corner]->index];
}

// The unit vector; zero where there is no direction.
Vector3 normalized(const Vector3& v) {
    const float length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    if (!(length > 0.0F && std::isfinite(length)))
        return {};
    return {v[0] / length, v[1] / length, v[2] / length};
}

Vector3 faceNormal(const Mesh& mesh, const MeshFace& face) {
    const MeshVertex& p0 = objectVertex(mesh, face, 0);
    const MeshVertex& p1 = objectVertex(mesh, face, 1);
    const MeshVertex& p2 = objectVertex(mesh, face, 2);
    const Vector3 a = {p0.x - p1.x, p0.y - p1.y, p0.z - p1.z};
    const Vector3 b = {p0.x - p2.x, p0.y - p2.y, p0.z - p2.z};
    return normalized({a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]});
}

// The sum of the face normals around a vertex, and how many they are.
struct NormalSum {
    Vector3 sum{};
    std::uint32_t faces = 0;
};

// Adds in the order of the faces: every vertex's sum is rounded as if its faces had been searched for in that order.
std::vector<NormalSum> sumNormals(const Mesh& mesh) {
    std::vector<NormalSum> sums(mesh.vertexCount);
    for (std::uint32_t f = 0; f < mesh.faceCount; ++f) {
        const MeshFace& face = mesh.faces[f];
        const std::uint32_t corners[3] = {face.corners[0]->index, face.corners[1]->index, face.corners[2]->index};
        for (std::size_t i = 0; i < 3; ++i) {
            if ((i > 0 && corners[i] == corners[0]) || (i > 1 && corners[i] == corners[1]))
                continue; // a face counts once for each of its vertices
            NormalSum& around = sums[corners[i]];
            for (std::size_t k = 0; k < 3; ++k)
                around.sum[k] += face.normal[k];
            ++around.faces;
        }
    }
    return sums;
}

Vector3 meanDirection(const NormalSum& around) {
    if (around.faces == 0)
        return {};
    const auto count = static_cast<float>(around.faces);
    return normalized({around.sum[0] / count, around.sum[1] / count, around.sum[2] / count});
}

void setNormal(MeshVertex& vertex, const Vector3& normal) {
    vertex.nx = normal[0];
    vertex.ny = normal[1];
    vertex.nz = normal[2];
}

Pixel32* optionalTexture(const char* fileName) {
    return fileName != nullptr ? getTexture(fileName) : nullptr;
}

std::unique_ptr<TextureLayer> layerOf(Pixel32* texels) {
    auto layer = std::make_unique<TextureLayer>();
    layer->texels = texels;
    return layer;
}

// Sphere map: 0 to 256 over the range of the normal, the axis towards or away from the viewer in the middle.
void mapSphere(const Mesh& mesh, MeshFace& face) {
    for (std::size_t i = 0; i < 3; ++i) {
        const MeshVertex& vertex = objectVertex(mesh, face, i);
        face.uv1[2 * i] = face.uv2[2 * i] = (vertex.nx + 1.0F) * 128.0F;
        face.uv1[2 * i + 1] = face.uv2[2 * i + 1] = (vertex.ny + 1.0F) * 128.0F;
    }
}

} // namespace

void computeNormals(Mesh& mesh) {
    for (std::uint32_t f = 0; f < mesh.faceCount; ++f)
        mesh.faces[f].normal = faceNormal(mesh, mesh.faces[f]);
    const std::vector<NormalSum> sums = sumNormals(mesh);
    for (std::uint32_t k = 0; k < mesh.vertexCount; ++k) {
        const Vector3 normal = meanDirection(sums[k]);
        setNormal(mesh.vertices[k], normal);
        setNormal(mesh.transformed[k], normal);
    }
}

void loadObject(Mesh& mesh, const char* objectName, const char* firstTexture, const char* secondTexture,
                std::uint32_t mode, float scale) {
    readLightWaveObject(objectName, mesh, readerModeBits);
    Pixel32* first = optionalTexture(firstTexture);
    Pixel32* second = optionalTexture(secondTexture);
    for (MeshVertex& vertex : mesh.vertices) {
        vertex.x *= scale;
        vertex.y *= scale;
        vertex.z *= scale;
    }
    computeNormals(mesh);

    mesh.materials = std::vector<MeshMaterial>(1);
    mesh.materialCount = 1;
    MeshMaterial& material = mesh.materials.front();
    material.mode = mode;
    material.colourLayer = layerOf(first);
    material.reflectionLayer = layerOf(second);
    for (std::uint32_t f = 0; f < mesh.faceCount; ++f) {
        MeshFace& face = mesh.faces[f];
        face.material = &material;
        face.surface = 0;
        mapSphere(mesh, face);
    }
}

} // namespace lumenfold
