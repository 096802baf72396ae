#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <array>
#include <cstdint>

// Texture warpers through coarse grids and quads. All coordinates are 16.16 fixed point in 32-bit integers that wrap;
// every division truncates towards zero.

namespace lumenfold {

struct WarpPoint {
    std::int16_t u;
    std::int16_t v; // texels
};

inline constexpr int warpGridWidth = 65;
inline constexpr int warpGridHeight = 49;
using WarpGrid = std::array<WarpPoint, warpGridWidth * warpGridHeight>; // row-major

// The one grid that every builder rewrites.
extern WarpGrid warpGrid;

// Added to every u and v that drawGridWarp reads; the scenes share it.
extern std::int32_t warpOffset;

// Fills area.width x area.height pixels (rows area.width apart) from a 256 x 256 texture through the grid's 64 x 48
// cells, then adds step to the warp offset. A remainder that the cells do not cover stays as it is.
void drawGridWarp(Pixel32* target, FrameInfo area, const WarpGrid& grid, const Pixel32* texture, std::int32_t step);

// One cell of the warp, area.width / 64 x area.height / 48 pixels (rounded down) from (x0, y0) of the target on. u, v:
// texels at the corners top-left, top-right, bottom-left, bottom-right, the warp offset included.
void fillWarpCell(FrameInfo area, Pixel32* target, const Pixel32* texture, int x0, int y0,
                  const std::array<std::int32_t, 4>& u, const std::array<std::int32_t, 4>& v);

// The corners of a quad in a source image: top-left, top-right, bottom-left, bottom-right of the target.
struct WarpQuad {
    std::array<std::int32_t, 4> x; // source columns
    std::array<std::int32_t, 4> y; // source rows
};

// Maps the whole target (area.width x area.height) from a 512 x 512 source, coordinates limited to 0..511.
void warpQuadClamped(FrameInfo area, Pixel32* target, const Pixel32* source, const WarpQuad& quad);

// The same from a 256 x 256 texture, coordinates wrapped.
void warpQuadWrapped(FrameInfo area, Pixel32* target, const Pixel32* texture, const WarpQuad& quad);

} // namespace lumenfold
