#pragma once

#include "core/frame_info.h"

#include <cstdint>
#include <vector>

namespace lumenfold {

// Texture coordinates for every pixel of a picture, seen from its middle: one 16-bit entry a pixel, row-major, low byte
// the texture's column, high byte its row. Look-ups add an offset that moves the whole picture. The builders replace
// what the table held before; only width and height of the size are read.
using TunnelTable = std::vector<std::uint16_t>;

// A straight tunnel: the column turns with the angle, the row grows with the distance from the middle.
void buildTunnelTable(TunnelTable& out, FrameInfo viewport);

// A funnel: the column turns with the angle and with the distance, the row falls with the distance.
void buildSpiralTable(TunnelTable& out, FrameInfo viewport);

// A tunnel whose walls are twisted in waves.
void buildWarpTable(TunnelTable& out, FrameInfo settings);

} // namespace lumenfold
