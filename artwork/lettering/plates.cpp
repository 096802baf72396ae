// The band of creases added over the ring, and the plate of letters laid over the metaballs.

#include "artwork/lettering/lettering.h"
#include "forge/canvas.h"
#include "forge/encode.h"
#include "forge/noise.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
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
         {std::pair{138.0, 0x000000U}, std::pair{126.0, 0xFFFFFFU}}) { // a ring of ink around it
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

// Opaque where it is not exactly white: lacquer of ink that the glowing body in the window lights, so gold near it and
// night in the corners. The cut has no half-covered pixels, so that no white shines at its edge.
Bitmap makeOverlayPlate() {
    constexpr int reach = 9;
    const Canvas hole(512, 384, 0);
    hole.ink(0xFFFFFF);
    letterHoles(hole);
    const Bitmap mask = hole.bitmap();
    const std::vector<float> distance = fromHole(mask, reach);
    Picture plate(512, 384);
    plate.change([&](Colour, int x, int y) {
        const auto farAt = [&](int px, int py) {
            return distance[static_cast<std::size_t>(std::clamp(py, 0, 383)) * 512 +
                            static_cast<std::size_t>(std::clamp(px, 0, 511))];
        };
        const float far = farAt(x, y);
        const float dx = static_cast<float>(x) - 255.5F;
        const float dy = static_cast<float>(y) - 191.5F;
        const float away = length(dx, dy);
        // the lacquer's grain follows the rings of light round the window
        const float turned = std::atan2(dy, dx);
        const float grain = fractalNoise({3 * std::cos(turned), 3 * std::sin(turned), away * 0.22F}, 3, 77);
        const float fire = exponential(-std::max(0.0F, away - 130) / 50);
        Colour light = mix(fromHex(0x03040C), fromHex(0x10268C), 0.60F + 0.4F * grain);
        light = mix(light, fromHex(0xD07818) * (1 + 0.4F * grain), saturate(1.05F * fire));
        light += fromHex(0xFFC04A) * (0.30F * fire * fire * fire);
        // the bevel: slopes that look at the fire are bright, those behind are night
        const float slopeX = farAt(x + 1, y) - farAt(x - 1, y);
        const float slopeY = farAt(x, y + 1) - farAt(x, y - 1);
        const float facing =
            (slopeX * dx + slopeY * dy) / (2 * std::max(away, 1.0F)); // 1: the cut is on the fire's side
        const float slope = smoothStep(6.5F, 3.0F, far);
        light = light * (1 - 0.45F * slope * (1 - saturate(facing)));
        light += fromHex(0xFFC04A) * (slope * saturate(facing) * (0.18F + 0.5F * fire));
        light += fromHex(0xFFE6A8) * (bell(far - 1.0F, 0.8F) * (0.35F + 0.7F * fire));
        return light;
    });
    Bitmap picture = developed(plate, {1, false, 0});
    for (std::size_t i = 0; i < picture.rgb.size(); ++i)
        picture.rgb[i] = mask.rgb[i] >= 128 ? 255 : std::min<std::uint8_t>(picture.rgb[i], 240);
    return picture;
}

} // namespace lumenfold::art
