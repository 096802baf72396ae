#include "assets/planar_coordinates.h"

#include "core/convert.h"
#include "core/random.h"

namespace lumenfold {

namespace {

constexpr std::uint32_t mappingPlanar = 1;
constexpr std::uint32_t axisX = 1;
constexpr std::uint32_t axisY = 2;
constexpr std::uint32_t axisZ = 4;
constexpr float lastTexel = 255.0F;

float wholeTexel(float value) {
    return static_cast<float>(truncate(value));
}

} // namespace

TexturePoint planarCoordinates(const TextureLayer& layer, float x, float y, float z) {
    auto u = static_cast<float>(rand() % 256);
    auto v = static_cast<float>(rand() % 256);
    if (layer.mapping == mappingPlanar) {
        const float s = (x - layer.centre[0]) / layer.size[0] + 0.5F;
        const float t = 0.5F - (y - layer.centre[1]) / layer.size[1];
        const float r = (z - layer.centre[2]) / layer.size[2] + 0.5F;
        switch (layer.axis) {
        case axisX:
            u = r * lastTexel;
            v = t * lastTexel;
            break;
        case axisY:
            u = s * lastTexel;
            v = r * lastTexel;
            break;
        case axisZ:
            u = s * lastTexel;
            v = t * lastTexel;
            break;
        default:
            break;
        }
    }
    return {wholeTexel(u), wholeTexel(v)};
}

} // namespace lumenfold
