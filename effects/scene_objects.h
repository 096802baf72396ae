#pragma once

#include "assets/lightwave.h"
#include "render/scene.h"

namespace lumenfold {

// Adds an object to the scene and reads it from a file with the file's own surfaces (mode bits 1). The scene must
// hold fewer than 100 objects and owns the new one; a missing file leaves it empty.
inline Mesh& addObjectFromFile(Scene& scene, const char* fileName) {
    Mesh& mesh = *scene.addObject();
    readLightWaveObject(fileName, mesh, 1);
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
