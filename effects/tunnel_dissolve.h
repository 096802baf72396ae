#pragma once

#include "effects/tunnel_tables.h"

#include "core/pixel.h"

namespace lumenfold {

// Two flat texture tunnels added together, from which a picture emerges.
struct TunnelDissolve {
    TunnelTable tunnelTable; // one entry a pixel
    TunnelTable spiralTable; // read backwards, so that its picture stands on its head
    const Pixel32* tunnelTexture = nullptr;
    const Pixel32* spiralTexture = nullptr; // both 256 x 256, owned by the texture cache
    std::int32_t offset = 0;                // added to every entry, runs on from frame to frame

    // Fills target, one pixel for each table entry: the tunnels at weight alpha over the picture at 255 - alpha.
    void draw(Pixel32* target, const Pixel32* picture, std::uint8_t alpha) const;

    // One texel along the columns, `rows` texels back along the rows.
    void move(std::int32_t rows);
};

} // namespace lumenfold
