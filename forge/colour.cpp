#include "forge/colour.h"

#include <array>

namespace lumenfold::art {

namespace {

float fromScreen(std::uint32_t byte) {
    const float s = static_cast<float>(byte & 255) / 255;
    return s <= 0.04045F ? s / 12.92F : power((s + 0.055F) / 1.055F, 2.4F);
}

} // namespace

Colour fromHex(std::uint32_t rgb) {
    return {fromScreen(rgb >> 16), fromScreen(rgb >> 8), fromScreen(rgb)};
}

float toScreen(float light) {
    const float l = saturate(light);
    return 255 * (l <= 0.0031308F ? 12.92F * l : 1.055F * power(l, 1 / 2.4F) - 0.055F);
}

float filmic(float light) {
    const float x = std::max(0.0F, light);
    return x * (2.51F * x + 0.03F) / (x * (2.43F * x + 0.59F) + 0.14F);
}

Colour filmic(Colour light) {
    return {filmic(light.x), filmic(light.y), filmic(light.z)};
}

namespace palette {
const Colour ink = fromHex(0x05070D);
const Colour deep = fromHex(0x0B2A33);
const Colour petrol = fromHex(0x14525C);
const Colour teal = fromHex(0x2FB7A8);
const Colour ice = fromHex(0xEAF6FF);
const Colour amber = fromHex(0xFF8A1E);
const Colour ember = fromHex(0x8C1F0A);
const Colour violet = fromHex(0x6A3CFF);
const Colour gold = fromHex(0xFFD9A0);
} // namespace palette

Colour thinFilm(float cosineToNormal, float thickness) {
    constexpr float index = 1.4F;
    const float inside = std::sqrt(1 - (1 - cosineToNormal * cosineToNormal) / (index * index));
    const float phase = 4 * pi * index * thickness * inside;
    const auto wave = [&](float relative) { return 0.5F + 0.5F * cosine(phase * relative); };
    return {wave(0.78F), wave(0.95F), wave(1.18F)};
}

Colour iridescence(float t) {
    static const std::array<Colour, 8> stops = {fromHex(0x062028), fromHex(0x0E6A74), fromHex(0x4FD6C6),
                                                fromHex(0xB8D8FF), fromHex(0x6A4CE0), fromHex(0x7A1F6A),
                                                fromHex(0xE8701A), fromHex(0xFFD9A0)};
    const float place = saturate(t) * 6.9999F;
    const auto stop = static_cast<std::size_t>(place);
    return mix(stops[stop], stops[stop + 1], smoothStep(0, 1, place - static_cast<float>(stop)));
}

} // namespace lumenfold::art
