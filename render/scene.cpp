#include "render/scene.h"

#include "render/clip.h"
#include "render/depth_buffer.h"
#include "render/matrix.h"
#include "render/transform.h"

#include <algorithm>
#include <cassert>

namespace lumenfold {

float sharedDepthBias = 0.0F;

namespace {

// The faces of one draw in drawing order; kept between draws for its room only.
std::vector<const MeshFace*> faceList;

std::size_t clampCount(std::int64_t count, std::size_t capacity) {
    return static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, static_cast<std::int64_t>(capacity)));
}

Vector3 toCamera(const Scene& scene, float x, float y, float z) {
    return transformPoint(x - scene.cameraPosition[0], y - scene.cameraPosition[1], z - scene.cameraPosition[2],
                          scene.cameraMatrix);
}

// Turns the object by its spin and moves its vertices to camera space; the normals stay in world space.
void transformObject(Mesh& mesh, const Scene& scene) {
    composeRotation(mesh.orientation, mesh.orientation, mesh.spin[0], mesh.spin[1], mesh.spin[2]);
    const Matrix m = mesh.orientation;
    const Vector3 place = mesh.position;
    const std::size_t count = clampCount(mesh.vertexCount, std::min(mesh.vertices.size(), mesh.transformed.size()));
    for (std::size_t k = 0; k < count; ++k) {
        const MeshVertex& source = mesh.vertices[k];
        MeshVertex& vertex = mesh.transformed[k];
        const Vector3 world = transformPoint(source.x, source.y, source.z, m);
        const Vector3 position = toCamera(scene, world[0] + place[0], world[1] + place[1], world[2] + place[2]);
        const Vector3 normal = transformPoint(source.nx, source.ny, source.nz, m); // row 3 included, as for positions
        vertex.x = position[0];
        vertex.y = position[1];
        vertex.z = position[2];
        vertex.nx = normal[0];
        vertex.ny = normal[1];
        vertex.nz = normal[2];
    }
}

// Environment map: the normal selects the texel, (0, 0, -1) the middle of the texture.
void mapReflection(MeshFace& face) {
    for (std::size_t i = 0; i < 3; ++i) {
        face.uv2[2 * i] = (face.corners[i]->nx + 1.0F) * 128.0F;
        face.uv2[2 * i + 1] = (face.corners[i]->ny + 1.0F) * 128.0F;
    }
}

void listFaces(Mesh& mesh) {
    const std::size_t count = clampCount(mesh.faceCount, mesh.faces.size());
    for (std::size_t f = 0; f < count; ++f) {
        MeshFace& face = mesh.faces[f];
        if (face.material != nullptr && (face.material->mode & modeReflectionLayer) != 0)
            mapReflection(face);
        faceList.push_back(&face);
    }
}

} // namespace

Mesh* Scene::addObject() {
    if (objectCount < 0 || objectCount >= maxObjects)
        return nullptr;
    auto& slot = objects[static_cast<std::size_t>(objectCount)];
    slot = std::make_shared<Mesh>();
    ++objectCount;
    return slot.get();
}

void drawScene(Scene& scene, FrameInfo info, Pixel32* target, float depthBias) {
    assert(depthBuffer != nullptr);
    Matrix identity;
    composeRotation(scene.cameraMatrix, matrixIdentity(identity), scene.cameraAngles[0], scene.cameraAngles[1],
                    scene.cameraAngles[2]);

    // All objects are moved before the first face is listed: one mesh may stand in several slots.
    const std::size_t objectCount = clampCount(scene.objectCount, scene.objects.size());
    for (std::size_t i = 0; i < objectCount; ++i) {
        if (scene.objects[i])
            transformObject(*scene.objects[i], scene);
    }
    faceList.clear();
    for (std::size_t i = 0; i < objectCount; ++i) {
        if (scene.objects[i])
            listFaces(*scene.objects[i]);
    }
    for (const MeshFace* face : faceList)
        clipAndDrawFace(*face, info, target, depthBias);

    const std::size_t spriteCount =
        clampCount(scene.spriteCount, std::min(scene.sprites.size(), scene.spriteWork.size()));
    for (std::size_t j = 0; j < spriteCount; ++j) {
        const Vector3 place = scene.sprites[j].position;
        scene.spriteWork[j] = scene.sprites[j];
        scene.spriteWork[j].position = toCamera(scene, place[0], place[1], place[2]);
    }
    for (std::size_t j = 0; j < spriteCount; ++j)
        drawSprite(scene.spriteWork[j], target, info, depthBias);
}

} // namespace lumenfold
