#include "effects/pulsing_tube.h"

#include "effects/tube.h"
#include "show_scenes.h"
#include "tube_literal.h"

namespace lumenfold {
namespace {

using test::saturatedSum;
using trig::atan2;
using trig::cos;
using trig::sin;

class PulsingTube : public test::ShowScenes {
  protected:
    // The scene told step by step.
    struct Literal {
        test::Frame picture, flare, feedback, texture;
        std::vector<TubePoint> points = std::vector<TubePoint>(384 * 6);
        std::uint32_t zoom = 110, cutSteps = 2, frames = 0;

        void cut() {
            if (cutSteps < 15)
                ++cutSteps;
            for (std::uint32_t r = 0; r < cutSteps; ++r)
                for (std::uint32_t y = 24 * r; y < 24 * r + 24; ++y)
                    for (std::uint32_t x = 0; x < 32; ++x)
                        picture[y * 512 + 32 * (16 - cutSteps + r) + x] = 0;
            zoom = 70;
        }

        void smear() {
            for (std::size_t i = 512; i < 512 * 383; ++i)
                feedback[i] = ((feedback[i - 1] >> 2) & 0x3F3F3F3F) + ((feedback[i + 1] >> 2) & 0x3F3F3F3F) +
                              ((feedback[i + 512] >> 2) & 0x3F3F3F3F) + ((feedback[i - 512] >> 2) & 0x3F3F3F3F);
        }

        void addFlares(float t) {
            const double s = sin(0.06 * t) * 10 + 40;
            const float c = static_cast<float>(cos(0.02 * t) * 10 + 40);
            const float p = static_cast<float>(s * (1 - cos(0.12 * t + 0.02 * s)) * 0.6);
            const float q = static_cast<float>((1 - sin(0.08 * t + 0.04 * c)) * c * 0.6);
            const double phi = atan2(q, p);
            const float d = static_cast<float>(std::sqrt(static_cast<double>(p * p + q * q)));
            for (int n = 0, i = 0; n < 21; ++n, i = truncate(i + 31.4159)) {
                ASSERT_EQ(i, 31 * n);
                const double rho = (std::fabs(sin(5 * i)) + 3) * d * 0.6 + 8;
                const double alpha = 0.01 * i + 2 * phi + 0.02 * d;
                const int y = truncate(sin(alpha) * rho + 176), x = truncate(cos(alpha) * rho + 320);
                if (x > 480 || y < 0 || y > 348)
                    continue;
                for (int row = 0; row < 32; ++row)
                    for (int column = 0; column < 32; ++column) {
                        Pixel32& pixel = feedback[static_cast<std::size_t>((y + row) * 512 + x + column)];
                        pixel = saturatedSum(pixel, flare[static_cast<std::size_t>(row * 32 + column)]);
                    }
            }
        }

        void render(test::Frame& frame, float t) {
            if (syncState.syncFlag37)
                cut();
            syncState.syncFlag37 = 0;
            if (zoom < 110)
                zoom += 3;
            smear();
            addFlares(t);
            for (std::size_t i = 0; i < frame.size(); ++i)
                frame[i] = saturatedSum(feedback[i], picture[i]);
            ++frames;
            test::literalBuildTube(points, t);
            if (frames % 16 == 0)
                clearDepthBuffer();
            test::literalDrawTube(points, texture.data(), zoom, frame.data(), 512, static_cast<float>(t * 200.0));
        }
    };

    Literal literal() {
        Literal scene;
        scene.picture = picture("svampbak.jpg", 512, 384);
        scene.flare = picture("petrolflare.jpg", 32, 32);
        scene.texture = picture("slem4.jpg", 256, 256);
        scene.feedback = blank();
        test::literalBuildTube(scene.points, 0.0F);
        for (TubePoint& point : scene.points)
            point.u = truncate(std::fabs(atan2(point.x, point.z)) * 40.58454476873176);
        return scene;
    }
};

TEST_F(PulsingTube, EveryFrameEqualsTheLiteralOne) {
    load({pulsingTube});
    std::vector<test::Moment> script;
    for (int n = 0; n < 72; ++n) {
        // steps in which flares stand exactly at the last column and in the last row that they may; towards the end
        // the depth's sum swallows the 1/z
        script.push_back({(n < 68 ? 500.0F : 98765.4F) + static_cast<float>(n) * 3.5F});
        if (n % 5 == 3 || n == 9)
            script.back().flags = {&syncState.syncFlag37};
    }
    Literal scene = literal();
    compare(pulsingTube, scene, script);
    EXPECT_EQ(scene.cutSteps, 15U);
}

} // namespace
} // namespace lumenfold
