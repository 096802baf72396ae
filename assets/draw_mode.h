#pragma once

#include <cstdint>

namespace lumenfold {

// How a surface is drawn. A surface's mode word is made of the caller's bits and those that the reader adds for each
// texture layer in the object file.
inline constexpr std::uint32_t modeDrawn = 0x01; // without this bit nothing but outlines is drawn
inline constexpr std::uint32_t modeColourLayer = 0x08;
inline constexpr std::uint32_t modeReflectionLayer = 0x10; // every draw maps the normals to uv2
inline constexpr std::uint32_t modeTransparencyLayer = 0x20;
inline constexpr std::uint32_t modeOutline = 0x200; // three white lines, whatever the other bits say

// The words that a filler belongs to; the renderer compares the whole word. All are depth-tested, and all but
// PerspectiveAdd write depth.
enum DrawMode : std::uint32_t {
    Perspective = 0x09,    // perspective-correct, the colour layer at uv1
    PerspectiveAdd = 0x29, // the same added with saturation, scrolled by the material's scroll, u and v exchanged
    Affine = 0x401,        // affine, the colour layer at uv1
    AffineAdd = 0x501,     // the same added with saturation
    Reflection = 0x11,     // affine, the colour layer at uv2: an environment map
    TwoLayers = 0x19,      // affine, the sum of the colour layer at uv1 and the reflection layer at uv2
};

// Their names on command lines.
struct NamedDrawMode {
    const char* name;
    DrawMode mode;
};
inline constexpr NamedDrawMode drawModes[] = {
    {"perspective", Perspective}, {"perspective-add", PerspectiveAdd}, {"affine", Affine},
    {"affine-add", AffineAdd},    {"reflection", Reflection},          {"two-layers", TwoLayers},
};

} // namespace lumenfold
