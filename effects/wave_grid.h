#pragma once

#include "effects/warp.h"

namespace lumenfold {

// Fills the grid with the texture coordinates of two crossing waves at demo time t: u waves from column to column, v
// from row to row, and both drift.
void buildWaveGrid(WarpGrid& grid, float t);

} // namespace lumenfold
