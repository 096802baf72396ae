#pragma once

#include "assets/big_endian.h"
#include "assets/mesh.h"

#include <iosfwd>

namespace lumenfold {

// Reads the sub-chunks of one SURF chunk (what follows its name) into the material, with a line of commentary on each.
// Texture sub-chunks act on the layer opened last within the chunk. What is damaged is skipped and reported.
// Throws what getTexture throws.
void readSurface(BigEndianReader subChunks, MeshMaterial& material, std::ostream& commentary);

} // namespace lumenfold
