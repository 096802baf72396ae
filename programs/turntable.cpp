#include "programs/turntable.h"

#include "assets/lightwave.h"
#include "assets/prepare.h"
#include "core/dynamic_error.h"
#include "core/kernels.h"
#include "core/trig.h"
#include "render/depth_buffer.h"
#include "render/matrix.h"

#include <algorithm>
#include <set>

namespace lumenfold {

namespace {

constexpr Pixel32 ground = 0x00141820;
constexpr std::uint32_t plainModeBits = 1;
constexpr float viewRadius = 4.0F;    // every object is brought to this size, between the near and the far limit
constexpr float viewDistance = 10.0F; // a sphere of that radius fills the picture's height there
constexpr float elevation = 20.0F;    // degrees

bool drawable(const TextureLayer* layer) {
    return layer != nullptr && layer->texels != nullptr;
}

} // namespace

Turntable::Turntable(const Subject& subject) : mesh(scene.addObject()) {
    const bool plain = subject.firstTexture.empty();
    if (plain)
        readLightWaveObject(subject.object.c_str(), *mesh, plainModeBits);
    else
        loadObject(*mesh, subject.object.c_str(), subject.firstTexture.c_str(),
                   subject.secondTexture.empty() ? nullptr : subject.secondTexture.c_str(), subject.mode,
                   subject.scale);
    if (mesh->faceCount == 0)
        throw DynamicError(subject.object + ": no faces in this object");
    count();
    fitIntoView(plain ? subject.scale : 1.0F);

    const double angle = elevation * 0.017453292519943295;
    scene.cameraPosition = {0.0F, static_cast<float>(viewDistance * trig::sin(angle)),
                            static_cast<float>(-viewDistance * trig::cos(angle))};
    scene.cameraAngles = {-elevation, 0.0F, 0.0F};
    allocateDepthBuffer(width, height);
}

void Turntable::draw(int frame, int frames, Pixel32* pixels) {
    fillPixels(pixels, ground, std::size_t{width} * height);
    clearDepthBuffer();
    const float turn = 360.0F * static_cast<float>(frame) / static_cast<float>(frames);
    matrixIdentity(mesh->orientation);
    composeRotation(mesh->orientation, mesh->orientation, 0.0F, turn, 0.0F);
    drawScene(scene, {width, height, 0, 0, 0}, pixels, 0.0F);
}

// Notes the bounds of the faces, then moves their middle to the origin and brings the object to the view's size.
void Turntable::fitIntoView(float scale) {
    const auto place = [this](const MeshVertex* corner) {
        const MeshVertex& v = mesh->vertices[corner->index];
        return Vector3{v.x, v.y, v.z};
    };
    low = high = place(mesh->faces[0].corners[0]);
    for (const MeshFace& face : mesh->faces) {
        for (const MeshVertex* corner : face.corners) {
            const Vector3 point = place(corner);
            for (std::size_t k = 0; k < 3; ++k) {
                low[k] = std::min(low[k], point[k]);
                high[k] = std::max(high[k], point[k]);
            }
        }
    }
    const Vector3 middle = {(low[0] + high[0]) / 2, (low[1] + high[1]) / 2, (low[2] + high[2]) / 2};
    float radius = 0.0F;
    for (const MeshFace& face : mesh->faces) {
        for (const MeshVertex* corner : face.corners) {
            const Vector3 point = place(corner);
            radius = std::max(radius, vectorLength({point[0] - middle[0], point[1] - middle[1], point[2] - middle[2]}));
        }
    }
    const float factor = radius > 0.0F ? viewRadius / radius : 1.0F;
    for (MeshVertex& v : mesh->vertices) {
        v.x = (v.x - middle[0]) * factor;
        v.y = (v.y - middle[1]) * factor;
        v.z = (v.z - middle[2]) * factor;
    }
    for (std::size_t k = 0; k < 3; ++k) {
        low[k] *= scale;
        high[k] *= scale;
    }
}

void Turntable::count() {
    std::set<const Pixel32*> textures;
    for (const MeshMaterial& material : mesh->materials) {
        for (const auto& layer :
             {material.colourLayer.get(), material.reflectionLayer.get(), material.transparencyLayer.get()}) {
            if (drawable(layer))
                textures.insert(layer->texels);
        }
    }
    const auto bare = [](const MeshFace& face) {
        return face.material == nullptr || !drawable(face.material->colourLayer.get());
    };
    objectCounts.vertices = mesh->vertexCount;
    objectCounts.faces = mesh->faceCount;
    objectCounts.bareFaces = static_cast<std::size_t>(std::count_if(mesh->faces.begin(), mesh->faces.end(), bare));
    objectCounts.surfaces = mesh->materialCount;
    objectCounts.textures = textures.size();
}

} // namespace lumenfold
