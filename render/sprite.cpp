#include "render/sprite.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "render/depth_buffer.h"

#include <algorithm>

namespace lumenfold {

namespace {

constexpr double nearestDrawn = 0.35;
constexpr double focalLength = 0.8;       // of the frame's width
constexpr double scaledSize = 0.0028;     // of the frame's width, for each pixel of the image at z = 1
constexpr std::uint32_t blendAdd = 1;     // saturating
constexpr std::uint32_t blendAverage = 2; // unscaled sprites only
constexpr std::uint32_t blendOpaque = 3;  // texel 0 is transparent

struct Place {
    std::int32_t x; // projected, in pixels
    std::int32_t y;
    float depth; // as the depth buffer holds it
};

Place project(const Sprite& sprite, FrameInfo info, float depthBias) {
    const double x = sprite.position[0];
    const double y = sprite.position[1];
    const double z = sprite.position[2];
    return {truncate(x * info.width * focalLength / z + (info.width >> 1)),
            truncate(-y * info.width * focalLength / z + (info.height >> 1)), 1.0F / sprite.position[2] + depthBias};
}

// At the image's own size, wholly inside the frame or not at all; no depth.
void drawUnscaled(const Sprite& sprite, const Place& place, Pixel32* target, FrameInfo info) {
    if (place.x < 0 || static_cast<std::int64_t>(place.x) + sprite.width >= info.width || place.y < 0 ||
        static_cast<std::int64_t>(place.y) + sprite.height >= info.height)
        return;
    for (std::uint32_t row = 0; row < sprite.height; ++row) {
        const Pixel32* image = sprite.image + static_cast<std::size_t>(row) * sprite.width;
        Pixel32* pixels = target + (static_cast<std::size_t>(place.y) + row) * static_cast<std::size_t>(info.width) +
                          static_cast<std::size_t>(place.x);
        if (sprite.blend == blendOpaque)
            overlayKeyed(pixels, image, 0, sprite.width);
        else if (sprite.blend == blendAdd)
            addSaturated(pixels, image, sprite.width);
        else if (sprite.blend == blendAverage)
            averageHalves(pixels, image, pixels, sprite.width);
    }
}

// One axis of a scaled sprite's rectangle: which of its pixels lie within the frame, and the image's 8.8 step.
struct Extent {
    std::int64_t start; // frame position of pixel 0
    std::int64_t first; // pixels first to last - 1 are drawn
    std::int64_t last;

    Extent(std::int32_t centre, std::int32_t size, std::int32_t drawn, std::int32_t frameSize)
        : start(static_cast<std::int64_t>(centre) - (size >> 1)), first(std::max<std::int64_t>(0, -start)),
          last(std::min<std::int64_t>(drawn, frameSize - start)) {}
};

// The 8.8 accumulator after so many steps, as a whole position in the image.
std::size_t imagePosition(std::uint32_t step, std::int64_t steps) {
    return (step * static_cast<std::uint32_t>(steps)) >> 8;
}

// Scaled with distance and centred. The rows' accumulator grows with the image's width and the columns' with its
// height; the opaque form lays the image transposed. The rows' accumulator takes its first step before the first row,
// the columns' after the first pixel. Only square images look right: what lies beyond the image is left out.
void drawScaled(const Sprite& sprite, const Place& place, Pixel32* target, FrameInfo info) {
    const double z = sprite.position[2];
    const std::int32_t width = truncate(static_cast<double>(sprite.width) * info.width * scaledSize / z);
    const std::int32_t height = truncate(static_cast<double>(sprite.height) * info.width * scaledSize / z);
    if (width <= 0 || height <= 0)
        return;
    const bool opaque = sprite.blend == blendOpaque;
    const std::uint32_t rowStep = sprite.width * 256 / static_cast<std::uint32_t>(width);      // 8.8
    const std::uint32_t columnStep = sprite.height * 256 / static_cast<std::uint32_t>(height); // 8.8
    const std::size_t pitch = sprite.width;
    const std::size_t texels = pitch * sprite.height;
    const Extent columns(place.x, width, width, info.width);
    const Extent rows(place.y, height, opaque ? height : height - 1, info.height);
    for (std::int64_t row = rows.first; row < rows.last; ++row) {
        const std::size_t a = imagePosition(rowStep, row + 1);
        const std::int64_t line = (rows.start + row) * info.width + columns.start;
        for (std::int64_t column = columns.first; column < columns.last; ++column) {
            const std::size_t b = imagePosition(columnStep, column);
            const std::size_t index = opaque ? b * pitch + a : a * pitch + b;
            if (index >= texels)
                continue;
            const Pixel32 texel = sprite.image[index];
            if (!opaque) {
                target[line + column] = addSaturated(texel, target[line + column]);
            } else if (texel != 0) {
                target[line + column] = texel;
                depthBuffer[line + column] = sprite.position[2]; // z itself, unlike every other depth written
            }
        }
    }
}

// The pixel at the sprite's centre alone decides whether an added sprite is seen.
bool centreVisible(const Place& place, FrameInfo info) {
    return place.x > 0 && place.x < info.width && place.y > 0 && place.y < info.height &&
           depthBuffer[place.y * info.width + place.x] < place.depth;
}

} // namespace

void drawSprite(const Sprite& sprite, Pixel32* target, FrameInfo info, float depthBias) {
    if (!(sprite.position[2] > nearestDrawn) || sprite.image == nullptr)
        return;
    const Place place = project(sprite, info, depthBias);
    if (sprite.scaled == 0)
        drawUnscaled(sprite, place, target, info);
    else if (sprite.blend == blendOpaque || (sprite.blend == blendAdd && centreVisible(place, info)))
        drawScaled(sprite, place, target, info);
}

} // namespace lumenfold
