#pragma once

#include "assets/mesh.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>

namespace lumenfold {

// Reads a LightWave object (IFF "FORM" of type "LWOB", triangles only) into an empty mesh, with a running commentary
// on standard output. Chunks may come in any order, but a surface is named before it is described: one that is not
// ends the reading. modeBits is ORed into every surface's mode (scenes pass 1, loadObject 4). Texture layers fetch
// their images with getTexture, whose errors pass through. A missing or foreign file leaves the mesh without
// faces and with an identity orientation. Damaged files: what points nowhere (a vertex number beyond the points, a
// chunk longer than the file) is skipped and reported. An object of which nothing or not all can be drawn gives a
// notice. Source: the IFF container (EA IFF 85) and the LWOB chunks of the LightWave object file format.
void readLightWaveObject(const char* fileName, Mesh& mesh, std::uint32_t modeBits);

// The same for an object file in memory, with the commentary on a stream of the caller's. Returns what keeps faces from
// being drawn, empty when nothing does.
std::string readLightWaveObject(const std::uint8_t* bytes, std::size_t size, Mesh& mesh, std::uint32_t modeBits,
                                std::ostream& commentary);

} // namespace lumenfold
