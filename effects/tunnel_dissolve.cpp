#include "effects/tunnel_dissolve.h"

#include "core/convert.h"
#include "core/kernels.h"

#include <algorithm>
#include <array>

namespace lumenfold {

void TunnelDissolve::draw(Pixel32* target, const Pixel32* picture, std::uint8_t alpha) const {
    std::array<Pixel32, 512> spiral; // a run at a time stays in the cache
    const std::size_t total = tunnelTable.size();
    for (std::size_t i = 0, count = 0; i < total; i += count) {
        count = std::min(spiral.size(), total - i);
        Pixel32* run = target + i;
        mapTableReversed(spiral.data(), &spiralTable[total - i - count], offset, spiralTexture, count);
        mapTable(run, &tunnelTable[i], offset, tunnelTexture, count);
        addSaturated(run, spiral.data(), count);
        crossFade(run, picture + i, alpha, count);
    }
}

void TunnelDissolve::move(std::int32_t rows) {
    offset = wrapAdd(offset, 1 - 256 * rows);
}

} // namespace lumenfold
