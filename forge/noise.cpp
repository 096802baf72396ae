#include "forge/noise.h"

namespace lumenfold::art {

namespace {

// Two rounds of multiply and xor-shift, constants of the "lowbias32" search by C. Wellons.
std::uint32_t scramble(std::uint32_t x) {
    x ^= x >> 16;
    x *= 0x7feb352dU;
    x ^= x >> 15;
    x *= 0x846ca68bU;
    x ^= x >> 16;
    return x;
}

int wrapped(int a, int period) {
    return period == 0 ? a : ((a % period) + period) % period;
}

float fade(float t) {
    return t * t * t * (t * (t * 6 - 15) + 10);
}

} // namespace

std::uint32_t hashOf(int x, int y, int z, std::uint32_t seed) {
    const auto spread = [](int v, std::uint32_t prime) { return static_cast<std::uint32_t>(v) * prime; };
    return scramble(spread(x, 73856093U) ^ scramble(spread(y, 19349663U) ^ scramble(spread(z, 83492791U) ^ seed)));
}

float hashUnit(int x, int y, int z, std::uint32_t seed) {
    return static_cast<float>(hashOf(x, y, z, seed) >> 8) * (1.0F / 16777216.0F);
}

float gradientNoise(Vec3 place, std::uint32_t seed, Period period) {
    const int x = static_cast<int>(std::floor(place.x));
    const int y = static_cast<int>(std::floor(place.y));
    const int z = static_cast<int>(std::floor(place.z));
    const Vec3 f = {place.x - static_cast<float>(x), place.y - static_cast<float>(y), place.z - static_cast<float>(z)};
    const auto corner = [&](int i, int j, int k) {
        const std::uint32_t h = hashOf(wrapped(x + i, period.x), wrapped(y + j, period.y), z + k, seed);
        const auto slope = [h](int shift) { return static_cast<float>(h >> shift & 1023) / 511.5F - 1; };
        return slope(0) * (f.x - static_cast<float>(i)) + slope(10) * (f.y - static_cast<float>(j)) +
               slope(20) * (f.z - static_cast<float>(k));
    };
    const float u = fade(f.x);
    const float v = fade(f.y);
    const auto plane = [&](int k) {
        return mix(mix(corner(0, 0, k), corner(1, 0, k), u), mix(corner(0, 1, k), corner(1, 1, k), u), v);
    };
    return mix(plane(0), plane(1), fade(f.z));
}

float fractalNoise(Vec3 place, int octaves, std::uint32_t seed, Period period) {
    float sum = 0;
    float weight = 0.5F;
    for (int i = 0; i < octaves; ++i) {
        sum += weight * gradientNoise(place, seed + static_cast<std::uint32_t>(i), period);
        place = place * 2;
        period = {period.x * 2, period.y * 2};
        weight *= 0.5F;
    }
    return sum;
}

float ridgedNoise(Vec3 place, int octaves, std::uint32_t seed, Period period) {
    float sum = 0;
    float weight = 0.5F;
    for (int i = 0; i < octaves; ++i) {
        const float ridge =
            1 - std::min(1.0F, 2 * std::fabs(gradientNoise(place, seed + static_cast<std::uint32_t>(i), period)));
        sum += weight * ridge * ridge;
        place = place * 2;
        period = {period.x * 2, period.y * 2};
        weight *= 0.5F;
    }
    return sum;
}

Cell cellNoise(float x, float y, std::uint32_t seed, Period period, float jitter, float roundness) {
    const int squareX = static_cast<int>(std::floor(x));
    const int squareY = static_cast<int>(std::floor(y));
    Cell cell;
    cell.nearest = 9;
    float weights = 0; // the smooth minimum of all distances is -ln(weights) / roundness
    for (int j = -2; j <= 2; ++j) {
        for (int i = -2; i <= 2; ++i) {
            const int a = wrapped(squareX + i, period.x);
            const int b = wrapped(squareY + j, period.y);
            const float dx = static_cast<float>(squareX + i) + 0.5F + jitter * (hashUnit(a, b, 0, seed) - 0.5F) - x;
            const float dy = static_cast<float>(squareY + j) + 0.5F + jitter * (hashUnit(a, b, 1, seed) - 0.5F) - y;
            const float distance = length(dx, dy);
            weights += exponential(-roundness * distance);
            if (distance < cell.nearest) {
                cell.nearest = distance;
                cell.toCentre = {dx, dy};
                cell.id = hashOf(a, b, 2, seed);
            }
        }
    }
    const float others = weights - exponential(-roundness * cell.nearest);
    const float second = -logarithm(std::max(others, 1e-9F)) / roundness;
    cell.border = second - cell.nearest;
    return cell;
}

} // namespace lumenfold::art
