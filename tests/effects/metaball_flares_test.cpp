#include "effects/metaball_flares.h"

#include "core/convert.h"
#include "core/trig.h"
#include "effects/metaballs.h"
#include "render/ray_field.h"
#include "show_scenes.h"
#include "tests/support/pixels.h"

#include <cmath>

namespace lumenfold {
namespace {

using test::saturatedSum;
using trig::cos;
using trig::sin;

class MetaballFlares : public test::ShowScenes {
  protected:
    // The scene told step by step; plane, field and crossings have tests of their own.
    struct Literal {
        RayField plane;
        test::Frame overlay, flare;
        float theta = 0.0F;

        void stamp(test::Frame& frame, const Vector3& point) const {
            const float q = 150 + point[2];
            const int sx = truncate((point[0] - 400) * 256 / q), sy = truncate((point[1] - 400) * 256 / q);
            const float r = static_cast<float>(std::sqrt(sx * sx + sy * sy));
            const double phi = trig::atan2(sy, sx) + theta;
            const int px = truncate(r * cos(phi) + 20 * sin(theta) + 256);
            const int py = truncate(r * sin(phi) + 20 * cos(theta) + 192);
            for (int y = 0; y < 16 && px > 0 && px < 512 && py > 0 && py < 384; ++y)
                for (int x = 0; x < 16; ++x)
                    if (px + x < 512 && py + y < 384) {
                        Pixel32& pixel = frame[static_cast<std::size_t>((py + y) * 512 + px + x)];
                        pixel = saturatedSum(pixel, flare[static_cast<std::size_t>(y * 16 + x)]);
                    }
        }

        void render(test::Frame& frame, float t) {
            const test::Frame previous = frame;
            drawRayField(plane, frame.data(), test::show);
            plane.angles = {0.2F, 0.0F, -0.4F};
            plane.scrollV += 22;
            const int A = truncate(350 - 80 * cos(0.2 * t)), B = truncate(350 - 90 * sin(0.3 * t));
            MetaballGrid grid;
            addMetaball(grid, {B, truncate(400 + 75 * cos(0.15 * t)), A, 100, 0.004F});
            addMetaball(grid, {truncate(450 + 80 * sin(0.3 * t)), A, B, 100, 0.004F});
            addMetaball(grid, {truncate(300 + 70 * sin(0.1 * t)), truncate(450 + 90 * cos(0.4 * t)),
                               truncate(450 - 60 * cos(0.5 * t)), 120, 0.004F});
            std::vector<Vector3> points;
            polygonise(grid, 60.0F, points);
            theta = static_cast<float>(theta + 0.05);
            for (const Vector3& point : points)
                stamp(frame, point);
            for (std::size_t i = 0; i < frame.size(); ++i) {
                frame[i] = ((frame[i] >> 1) & 0x7F7F7F7F) + ((previous[i] >> 1) & 0x7F7F7F7F);
                if (overlay[i] != 0x00FFFFFF)
                    frame[i] = overlay[i];
            }
        }
    };
};

TEST_F(MetaballFlares, EveryFrameEqualsTheLiteralOne) {
    load({metaballFlares});
    Literal scene{makeRayField(RayShape::Plane, getTexture("fdgrid.jpg")), picture("designfusk.pcx", 512, 384),
                  picture("bfs0.pcx", 16, 16)};
    std::vector<test::Moment> script;
    for (int n = 0; n < 40; ++n)
        script.push_back({7000.0F + static_cast<float>(n * n) * 0.26F});
    compare(metaballFlares, scene, script);
}

} // namespace
} // namespace lumenfold
