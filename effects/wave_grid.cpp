#include "effects/wave_grid.h"

#include "core/convert.h"
#include "core/trig.h"

namespace lumenfold {

void buildWaveGrid(WarpGrid& grid, float t) {
    using trig::cos;
    using trig::sin;
    constexpr int right = warpGridWidth / 2;
    constexpr int bottom = warpGridHeight / 2;

    const double T = t * 0.12;
    const double uFrequency = sin(0.5 * T) * 0.1 + 0.15;
    const double uAmplitude = sin(0.1 * T) * 14.0 + 20.0;
    const double uSlant = sin(0.14 * T) * 0.3 + 2.0; // texels from row to row
    const double uDrift = 30 * T;
    const double vPhase = sin(0.5 * T) * 10.0;
    const double vFrequency = sin(0.3 * T) * 0.1 + 0.13;
    const double vAmplitude = sin(0.05 * T) * 14.0 + 20.0;
    const double vSlant = cos(0.04 * T) * 0.4 + 2.0; // texels from column to column
    const double vDrift = 50 * T;

    // what depends on the column only
    std::array<double, warpGridWidth> uWave;
    std::array<double, warpGridWidth> vBase;
    for (std::size_t column = 0; column < uWave.size(); ++column) {
        const int i = static_cast<int>(column) - right;
        uWave[column] = uAmplitude * sin(uFrequency * i) + uDrift;
        vBase[column] = vSlant * i + vDrift;
    }

    WarpPoint* point = grid.data();
    for (int j = -bottom; j <= bottom; ++j) {
        const double vWave = vAmplitude * sin((j + vPhase) * vFrequency);
        for (std::size_t column = 0; column < uWave.size(); ++column)
            *point++ = {static_cast<std::int16_t>(truncate(uWave[column] + uSlant * j)),
                        static_cast<std::int16_t>(truncate(vBase[column] + vWave))};
    }
}

} // namespace lumenfold
