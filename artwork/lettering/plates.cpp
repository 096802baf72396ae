// The band of creases added over the ring, and the plate of letters laid over the metaballs.

#include "artwork/lettering/lettering.h"
#include "forge/canvas.h"
#include "forge/encode.h"
#include "forge/noise.h"

#include <algorithm>
#include <cairo.h>
#include <utility>
#include <vector>

namespace lumenfold::art {

namespace {

using Face = Canvas::Face;

constexpr double turn = 6.283185307179586;

} // namespace

// Added; 512 x 70 with 40 rows in sight, running past four columns a frame: creases of one pixel in dark cobalt, which
// close on themselves sideways.
Bitmap makeCircuitBand() {
    const Canvas canvas(512, 70, 0x02030C);
    for (int crease = 0; crease < 26; ++crease) {
        const auto random = [&](int which) { return static_cast<double>(hashUnit(crease, which, 0, 21)); };
        const double x = 512 * random(0);
        const double y = 70 * random(1);
        const double reach = 60 + 150 * random(2);
        const double fall = 26 * (random(3) - 0.5) + (crease % 3 == 0 ? 40 * (random(4) - 0.5) : 0);
        canvas.ink(crease % 9 == 4 ? 0xFF3B1F : crease % 4 == 0 ? 0xF2F6FF : 0x4E7BFF, 0.16 + 0.07 * random(5));
        for (int copy = -1; copy <= 1; ++copy) // what leaves on the right comes in on the left
            canvas.line(x + 512 * copy, y, x + reach + 512 * copy, y + fall, 1.0);
    }
    return canvas.bitmap();
}

namespace {

// Four letters, two to a row, so large that every edge of the screen cuts them, and a round window where they meet.
void letterHoles(const Canvas& canvas) {
    constexpr const char* letters[2][2] = {{"F", "O"}, {"L", "D"}};
    constexpr double size = 318; // capitals of 220 pixels
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 2; ++column) {
            const char* const letter = letters[row][column];
            const double wide = canvas.widthOf(letter, Face::StrongBold, size);
            const double x = column == 0 ? -18 : 530 - wide;
            canvas.text(x, row == 0 ? 196 : 408, letter, Face::StrongBold, size);
        }
    for (const auto& [radius, rgb] :
         {std::pair{146.0, 0x000000U}, std::pair{124.0, 0xFFFFFFU}}) { // a ring of ink around it
        canvas.ink(rgb);
        cairo_arc(canvas.cairo(), 256, 192, radius, 0, turn);
        cairo_fill(canvas.cairo());
    }
}

// How far a pixel is from the nearest hole, for the first few pixels: the bevel of the cut.
std::vector<float> fromHole(const Bitmap& mask, int reach) {
    std::vector<float> distance(static_cast<std::size_t>(mask.width) * mask.height, static_cast<float>(reach));
    for (int y = 0; y < mask.height; ++y)
        for (int x = 0; x < mask.width; ++x) {
            float& nearest = distance[static_cast<std::size_t>(y) * mask.width + x];
            for (int dy = -reach; dy <= reach; ++dy)
                for (int dx = -reach; dx <= reach; ++dx) {
                    const int px = std::clamp(x + dx, 0, mask.width - 1);
                    const int py = std::clamp(y + dy, 0, mask.height - 1);
                    if (mask.rgb[3 * (static_cast<std::size_t>(py) * mask.width + px)] >= 128)
                        nearest = std::min(nearest, length(static_cast<float>(dx), static_cast<float>(dy)));
                }
        }
    return distance;
}

} // namespace

// Opaque where it is not exactly white: ink with gold along the cut, which has no half-covered pixels, so that no white
// shines at its edge.
Bitmap makeOverlayPlate() {
    constexpr int reach = 9;
    const Canvas hole(512, 384, 0);
    hole.ink(0xFFFFFF);
    letterHoles(hole);
    const Bitmap mask = hole.bitmap();
    const std::vector<float> distance = fromHole(mask, reach);
    Picture plate(512, 384);
    plate.change([&](Colour, int x, int y) {
        const float far = distance[static_cast<std::size_t>(y) * 512 + static_cast<std::size_t>(x)];
        const float u = static_cast<float>(x) / 512;
        const float v = static_cast<float>(y) / 384;
        const float sheen = bell(u - 0.25F - 0.5F * v, 0.10F) + 0.6F * bell(u - 0.62F - 0.5F * v, 0.05F);
        Colour light = mix(fromHex(0x080C22), fromHex(0x2C46CC), 0.45F + 0.55F * sheen);
        light = light * (1 + 0.25F * fractalNoise({6 * u, 90 * v, 1}, 2, 77));
        const float lit = smoothStep(1.2F, 0.1F, u + v - 0.25F);
        light += fromHex(0xFFC04A) * (bell(far - 1.0F, 0.9F) * (0.45F + 0.8F * lit));
        light += fromHex(0xFFC04A) * (0.10F * bell(far - 2.0F, 3.0F));
        return light;
    });
    Bitmap picture = developed(plate, {1, false, 0});
    for (std::size_t i = 0; i < picture.rgb.size(); ++i)
        picture.rgb[i] = mask.rgb[i] >= 128 ? 255 : std::min<std::uint8_t>(picture.rgb[i], 250);
    return picture;
}

} // namespace lumenfold::art
