#pragma once

#include "assets/mesh.h"

#include <cstdint>

namespace lumenfold {

// Unit face normals (P0 - P1) x (P0 - P2) and unit vertex normals (mean of the faces around) in object space, the
// latter in both vertex arrays. Collinear faces, unused vertices and sums that cancel get the zero vector.
void computeNormals(Mesh& mesh);

// Reads an object into an empty mesh and prepares it for environment maps: scaled, with normals, one material of the
// given mode with two texture layers, and sphere-map coordinates (n + 1) x 128 in uv1 and uv2. A texture name may be
// null; its layer then has no texture. Mesh::transformed keeps the file's size until the first draw.
// Throws what getTexture throws; a missing object file leaves an empty mesh that still has its material.
void loadObject(Mesh& mesh, const char* objectName, const char* firstTexture, const char* secondTexture,
                std::uint32_t mode, float scale);

} // namespace lumenfold
