#include "assets/prepare.h"

#include "core/random.h"
#include "object_builder.h"
#include "tests/support/temporary_file.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumenfold {
namespace {

using Triangles = std::vector<std::array<std::uint32_t, 3>>;

void fillMesh(Mesh& mesh, const std::vector<Vector3>& points, const Triangles& triangles) {
    for (const Vector3& p : points)
        mesh.vertices.push_back({p[0], p[1], p[2], 0, 0, 0, 0});
    mesh.transformed = mesh.vertices;
    for (std::uint32_t k = 0; k < points.size(); ++k)
        mesh.transformed[k].index = k;
    for (const auto& triangle : triangles) {
        MeshFace face;
        for (std::size_t i = 0; i < 3; ++i)
            face.corners[i] = &mesh.transformed[triangle[i]];
        mesh.faces.push_back(face);
    }
    mesh.vertexCount = static_cast<std::uint32_t>(points.size());
    mesh.faceCount = static_cast<std::uint32_t>(triangles.size());
}

Vector3 vertexNormal(const MeshVertex& vertex) {
    return {vertex.nx, vertex.ny, vertex.nz};
}

TEST(ComputeNormals, SmallMeshes) {
    const float half = std::sqrt(0.5F);
    const struct {
        const char* what;
        std::vector<Vector3> points;
        Triangles triangles;
        Vector3 firstFace;
        Vector3 firstVertex;
    } cases[] = {
        {"one triangle", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}, {0, 0, 1}, {0, 0, 1}},
        {"the other way round", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 2, 1}}, {0, 0, -1}, {0, 0, -1}},
        {"two at a right angle",
         {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
         {{0, 1, 2}, {0, 2, 3}},
         {0, 0, 1},
         {half, 0, half}},
        {"back to back", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 2, 1}}, {0, 0, 1}, {0, 0, 0}},
        {"collinear", {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}}, {{0, 1, 2}}, {0, 0, 0}, {0, 0, 0}},
        {"a corner twice", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 0, 2}, {0, 1, 2}}, {0, 0, 0}, {0, 0, 1}},
        {"an unused vertex", {{9, 9, 9}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{1, 2, 3}}, {0, 0, 1}, {0, 0, 0}},
        {"not a number", {{NAN, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}, {0, 0, 0}, {0, 0, 0}},
    };
    for (const auto& c : cases) {
        Mesh mesh;
        fillMesh(mesh, c.points, c.triangles);
        computeNormals(mesh);
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_FLOAT_EQ(mesh.faces[0].normal[k], c.firstFace[k]) << c.what;
            EXPECT_FLOAT_EQ(vertexNormal(mesh.vertices[0])[k], c.firstVertex[k]) << c.what;
        }
        EXPECT_EQ(vertexNormal(mesh.transformed[0]), vertexNormal(mesh.vertices[0])) << c.what;
    }
}

// The search that defines the sums' order: all faces for each vertex.
Vector3 searchedNormal(const Mesh& mesh, std::uint32_t k) {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
    int count = 0;
    for (const MeshFace& face : mesh.faces) {
        if (face.corners[0]->index == k || face.corners[1]->index == k || face.corners[2]->index == k) {
            x += face.normal[0];
            y += face.normal[1];
            z += face.normal[2];
            ++count;
        }
    }
    if (count == 0)
        return {};
    x /= static_cast<float>(count);
    y /= static_cast<float>(count);
    z /= static_cast<float>(count);
    const float length = std::sqrt(x * x + y * y + z * z);
    return length > 0.0F ? Vector3{x / length, y / length, z / length} : Vector3{};
}

TEST(ComputeNormals, SumsInTheOrderOfTheFaces) {
    std::vector<Vector3> points(60);
    Triangles triangles(400);
    for (Vector3& point : points) {
        for (float& component : point)
            component = static_cast<float>(rand()) / 999.0F;
    }
    for (auto& triangle : triangles) {
        for (std::uint32_t& corner : triangle)
            corner = static_cast<std::uint32_t>(rand()) % 60;
    }
    Mesh mesh;
    fillMesh(mesh, points, triangles);
    computeNormals(mesh);
    for (std::uint32_t k = 0; k < mesh.vertexCount; ++k)
        EXPECT_EQ(vertexNormal(mesh.vertices[k]), searchedNormal(mesh, k)) << k;
}

TEST(LoadObject, ScalesAndMapsTheSphere) {
    using namespace object_builder;
    const test::TemporaryFile file(
        "corner.lwo", object(chunk("PNTS", vector(0, 0, 0) + vector(1, 0, 0) + vector(0, 1, 0) + vector(0, 0, 1)) +
                             chunk("SRFS", name("S")) + chunk("POLS", polygon({0, 1, 2}, 1) + polygon({0, 2, 3}, 7))));
    Mesh mesh;
    testing::internal::CaptureStdout();
    loadObject(mesh, file.name(), nullptr, nullptr, 0x401, 3.0F);
    testing::internal::GetCapturedStdout();

    EXPECT_EQ(mesh.vertices[1].x, 3.0F);
    EXPECT_EQ(mesh.transformed[1].x, 1.0F); // until the first draw
    ASSERT_EQ(mesh.materialCount, 1U);
    const MeshMaterial& material = mesh.materials[0];
    EXPECT_EQ(material.mode, 0x401U);
    ASSERT_NE(material.reflectionLayer, nullptr);
    EXPECT_EQ(material.reflectionLayer->texels, nullptr);
    for (const MeshFace& face : mesh.faces) {
        EXPECT_EQ(face.material, &material);
        EXPECT_EQ(face.surface, 0);
        EXPECT_EQ(face.uv1, face.uv2);
    }
    // Vertex 1 has the normal (0, 0, 1), vertex 3 (1, 0, 0).
    EXPECT_EQ(mesh.faces[0].uv1[2], 128.0F);
    EXPECT_EQ(mesh.faces[0].uv1[3], 128.0F);
    EXPECT_EQ(mesh.faces[1].uv1[4], 256.0F);
    EXPECT_EQ(mesh.faces[1].uv1[5], 128.0F);
}

TEST(LoadObject, MissingObjectStillHasItsMaterial) {
    Mesh mesh;
    testing::internal::CaptureStdout();
    loadObject(mesh, "no such object.lwo", nullptr, nullptr, 0x19, 1.0F);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n  file not found!!!!! \n");
    EXPECT_EQ(mesh.faceCount, 0U);
    ASSERT_EQ(mesh.materialCount, 1U);
    EXPECT_EQ(mesh.materials[0].mode, 0x19U);
}

} // namespace
} // namespace lumenfold
