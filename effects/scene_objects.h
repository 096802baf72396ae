#pragma once

#include "assets/lightwave.h"
#include "render/scene.h"

#include <cassert>

namespace lumenfold {

// Adds an empty object to the scene, which must hold fewer than Scene::maxObjects and owns the new one.
inline Mesh& addEmptyObject(Scene& scene) {
    Mesh* mesh = scene.addObject();
    assert(mesh != nullptr);
    return *mesh;
}

// Adds an object, as above, and reads it from a file with the file's own surfaces; a missing file leaves it empty.
inline Mesh& addObjectFromFile(Scene& scene, const char* fileName) {
    Mesh& mesh = addEmptyObject(scene);
    readLightWaveObject(fileName, mesh, modeDrawn);
    return mesh;
}

// Gives every surface of the object the same drawing mode.
inline void setModes(Mesh& mesh, std::uint32_t mode) {
    for (MeshMaterial& material : mesh.materials)
        material.mode = mode;
}

// Puts a texture into the colour layer of one surface; an object that lacks the surface or its layer stays as it is.
inline void setColourTexture(Mesh& mesh, std::size_t surface, Pixel32* texels) {
    if (surface < mesh.materials.size() && mesh.materials[surface].colourLayer)
        mesh.materials[surface].colourLayer->texels = texels;
}

} // namespace lumenfold
