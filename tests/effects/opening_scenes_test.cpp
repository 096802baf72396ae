// The first three parts of the show, every frame beside the scene told step by step. Tables, ring, bands, strip and
// the renderer have tests of their own and are used as they are.

#include "effects/sprite_ring_cube.h"
#include "effects/tumbling_showcase.h"
#include "effects/tunnel_opening.h"

#include "assets/prepare.h"
#include "core/convert.h"
#include "core/trig.h"
#include "effects/ring_backdrop.h"
#include "effects/sprite_ring.h"
#include "effects/strip_reveal.h"
#include "effects/tunnel_tables.h"
#include "render/scene.h"
#include "show_scenes.h"
#include "tests/support/pixels.h"

#include <algorithm>
#include <utility>

namespace lumenfold {
namespace {

using test::Frame;
using test::Moment;
using test::perByte;
using test::saturatedSum;
using trig::cos;
using trig::sin;

class OpeningScenes : public test::ShowScenes {
  protected:
    static void blend(Frame& frame, const Frame& other, int a, std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i)
            frame[i] = perByte(frame[i], other[i], [a](Pixel32 p, Pixel32 q) {
                return (p * static_cast<Pixel32>(a & 255) + q * static_cast<Pixel32>(255 - (a & 255))) >> 8;
            });
    }
};

struct Opening : OpeningScenes {
    struct Literal {
        Scene tunnelScene, prisonScene;
        Frame offscreen = blank(), black = blank(), skum, logo;
        TunnelTable tunnel, spiral;
        const Pixel32* spiralTexture = getTexture("cell5a.jpg");
        const Pixel32* tunnelTexture = getTexture("petrolenv.jpg");
        std::int32_t offset = 0;
        float counter = 0.0F, t0 = 0.0F, dissolveStart = 0.0F;
        int counterA = 0, counterB = 0;

        static constexpr FrameInfo box{512, 270, 0, 0, 0};
        static constexpr std::size_t top = 57 * 512, end = 327 * 512;

        Literal() {
            skum = picture("skum3.jpg", 512, 384);
            logo = picture("goodlog512a.jpg", 512, 80);
            buildTunnelTable(tunnel, box);
            buildSpiralTable(spiral, box);
            add(tunnelScene, "mytun_ny1a.lwo");
            tunnelScene.cameraPosition = {-0.7F, -0.5F, -14.0F};
            add(prisonScene, "prison2.lwo");
            prisonScene.cameraPosition = {0.0F, 0.0F, -6.0F};
            prisonScene.cameraAngles[0] = 4.0F;
        }

        void addLogo(Frame& frame) const {
            for (std::size_t i = 0; i < 512 * 80; ++i)
                frame[152 * 512 + i] = saturatedSum(frame[152 * 512 + i], logo[i]);
        }

        void blurLogo() {
            const auto part = [this](std::ptrdiff_t i) {
                return i < 0 || i >= 512 * 80 ? 0 : logo[static_cast<std::size_t>(i)] >> 2 & 0x3f3f3f3f;
            };
            for (std::ptrdiff_t i = 0; i < 512 * 80; ++i)
                logo[static_cast<std::size_t>(i)] = part(i + 4) + part(i - 4) + part(i + 1) + part(i - 1);
        }

        void moveTunnel(float lt) {
            auto& [x, y, z] = tunnelScene.cameraPosition;
            auto& [a, b, c] = tunnelScene.cameraAngles;
            if (lt <= 290) {
                z = single(lt * 0.08 - 14.0);
            } else {
                const float s = lt - 290;
                b = single(-0.065 * s * s);
                if (b < -90.0)
                    b = -90.0F;
                x = single(s * cos((b + 90) * 0.01745327777777778) * 0.05 - 0.7);
                z = single(z + s * sin((b + 90) * 0.01745327777777778) * 0.0082);
            }
            c = single(sin(lt * 0.02 - 4.712385) * 20.0);
        }

        void dissolve(Frame& frame, float d, float t) {
            drawScene(tunnelScene, box, &offscreen[top], counter);
            const int alpha = truncate(255 - d * 4.0), k = truncate(sin(t * 0.03) * -4.0);
            for (std::size_t i = 0; i < 138240; ++i) {
                const auto e1 = static_cast<std::size_t>((spiral[138239 - i] + std::int64_t{offset}) & 0xffff);
                const auto e2 = static_cast<std::size_t>((tunnel[i] + std::int64_t{offset}) & 0xffff);
                frame[top + i] = saturatedSum(spiralTexture[e1], tunnelTexture[e2]);
            }
            blend(frame, offscreen, alpha, top, end);
            offset += 1 - 256 * k;
            addLogo(frame);
            tunnelScene.cameraPosition[2] = 16.0F;
        }

        void phaseA(Frame& frame, float t) {
            if (++counterA == 1)
                t0 = t;
            const float lt = t - t0;
            moveTunnel(lt);
            if (dissolveStart == 0.0F)
                drawScene(tunnelScene, box, &frame[top], counter += 1.0F);
            if (lt < 127)
                blend(frame, black, truncate(lt + lt), top, end);
            if (syncState.syncFlag39) {
                syncState.syncFlag39 = 0;
                dissolveStart = lt;
            }
            if (dissolveStart != 0.0F) {
                const float d = lt - dissolveStart;
                counter += 1.0F;
                if (d < 63) {
                    dissolve(frame, d, t);
                } else {
                    drawScene(tunnelScene, box, &frame[top], counter);
                    if (d > 78)
                        blurLogo();
                    addLogo(frame);
                }
            }
            if (587 < lt && lt < 650)
                blend(frame, black, truncate((650 - lt) * 4.0), top, end);
        }

        void phaseB(Frame& frame, float t) {
            if (++counterB == 1)
                t0 = t;
            const float lt = t - t0;
            drawScene(prisonScene, box, &frame[top], counter += 1.0F);
            if (lt < 63)
                blend(frame, black, truncate(lt * 4.0), top, end);
            prisonScene.cameraPosition[2] = std::min(single(lt * 0.1 - 4.0), 32.0F);
            prisonScene.cameraAngles[0] = std::max(single(-lt * 0.25), -90.0F);
            float& y = prisonScene.cameraPosition[1];
            y = single((lt * 0.008) * (lt * 0.01) * (lt * 0.009) - 1.0);
            if (lt > 300)
                y = single(y - (lt - 300) * 0.4);
            if (327 < lt && lt < 390)
                blend(frame, skum, truncate((390 - lt) * 4.0), 0, frame.size());
        }

        void render(Frame& frame, float t) { syncState.syncFlag36 ? phaseB(frame, t) : phaseA(frame, t); }
    };
};

TEST_F(Opening, EveryMomentEqualsTheLiteralOne) {
    SyncByte* const f39 = &syncState.syncFlag39;
    SyncByte* const f36 = &syncState.syncFlag36;
    // the dissolve on the straight, and in the bend; a flag at local time 0 starts nothing
    for (const float dissolve : {210.3F, 283.7F}) {
        load({tunnelOpening});
        std::vector<Moment> script{{33.4F, {f39}}, {40.0F}, {90.7F}, {160.3F}, {160.5F}, {230.0F}};
        script.push_back({33.4F + dissolve, {f39}});
        for (const float d : {0.27F, 9.5F, 31.0F, 62.9F, 63.1F, 77.9F, 78.3F, 78.6F, 90.0F, 110.0F, 160.0F, 250.0F})
            script.push_back({33.4F + dissolve + d});
        for (const float lt : {586.9F, 588.0F, 620.2F, 649.9F, 651.0F})
            script.push_back({33.4F + lt});
        script.push_back({700.0F, {f36}});
        for (const float lt : {11.1F, 62.9F, 63.1F, 200.0F, 299.0F, 301.5F, 327.4F, 355.0F, 389.9F, 391.0F})
            script.push_back({700.0F + lt});
        Literal literal;
        compare(tunnelOpening, literal, script);
    }
}

struct RingCube : OpeningScenes {
    struct Literal {
        Frame background = picture("skum3.jpg", 512, 384), fire = picture("bkfire.jpg", 512, 384);
        Frame endPicture = picture("part3bak.jpg", 512, 384), sprite = picture("bfs1.pcx", 32, 32);
        const Pixel32* texture = getTexture("cell1.jpg");
        RingBackdrop backdrop;
        SpriteRing ring;
        TunnelTable warp;
        Scene scene;
        std::int32_t warpOffset = 0;
        int counterA = 0, counterB = 0;
        float startA = 0.0F, startB = 0.0F, accA = 0.0F, accB = 0.0F, counter = 0.0F;

        Literal() {
            backdrop.set(picture("circ3.jpg", 512, 70), picture("cptext6.pcx", 128, 512));
            ring.sprite = sprite.data();
            buildWarpTable(warp, test::show);
            add(scene, "cube6.lwo");
            scene.cameraPosition = {0.0F, 0.0F, -1.3F};
        }

        void phaseA(Frame& frame, float t) {
            if (++counterA == 1)
                startA = t;
            frame = background;
            backdrop.addBands(frame.data());
            backdrop.addStrip(frame.data());
            backdrop.scroll();
            const float lt = t - startA;
            drawSpriteRing(ring, test::show, lt * 1.6 + 30.0, frame.data(), syncState.syncFlag32 == 1);
            syncState.syncFlag32 = 0;
        }

        void phaseB(Frame& frame, float t) {
            if (++counterB == 1)
                startB = t;
            const float lt = t - startB;
            for (std::size_t i = 0; i < frame.size(); ++i)
                frame[i] = saturatedSum(fire[i], texture[static_cast<std::size_t>((warp[i] + warpOffset) & 0xffff)]);
            warpOffset += 0x101;
            Mesh& mesh = *scene.objects[0];
            mesh.position[2] = single(sin(lt * 0.044) * 5.0);
            if (lt <= 30) {
                mesh.spin[0] = 0;
                mesh.spin[1] = single(lt * 6.0 - accB);
                accB = accB + mesh.spin[1];
            } else if (lt <= 60) {
                mesh.spin[1] = 0;
                mesh.spin[0] = single((lt - 30) * 12.0 - accA);
                accA = accA + mesh.spin[0];
            }
            if (lt > 60) {
                mesh.spin[0] = 0;
                if (accA < 360.0) {
                    mesh.spin[0] = single(360.0 - accA);
                    accA = 0;
                }
                mesh.spin[1] = 0;
            }
            if (mesh.position[2] < 0.0)
                mesh.position[2] = 0;
            drawScene(scene, test::show, frame.data(), counter += 3.0F);
            if (lt > 72)
                frame = endPicture;
        }

        void render(Frame& frame, float t) { syncState.syncFlag59 ? phaseB(frame, t) : phaseA(frame, t); }
    };
};

TEST_F(RingCube, EveryMomentEqualsTheLiteralOne) {
    load({spriteRingCube});
    std::vector<Moment> script;
    for (int n = 0; n < 60; ++n) {
        const float time = 900.0F + static_cast<float>(n) * 0.7F;
        script.push_back(n % 23 == 20 ? Moment{time, {&syncState.syncFlag32}} : Moment{time});
    }
    script.push_back({950.0F, {&syncState.syncFlag59}});
    for (const float lt : {0.3F, 7.0F, 29.8F, 30.0F, 30.4F, 44.0F, 59.9F, 60.2F, 60.5F, 71.9F, 72.0F, 72.1F, 90.0F})
        script.push_back({950.0F + lt, {&syncState.syncFlag32}}); // its flag stays in this phase
    Literal literal;
    compare(spriteRingCube, literal, script);
}

struct Showcase : OpeningScenes {
    struct Literal {
        Scene scene;
        Frame background = picture("part3bak.jpg", 512, 384), black = blank();
        StripReveal reveal;
        float F = 0.0F, fadeStart = 0.0F;
        std::size_t swap = 0;
        bool fading = false;

        Literal() {
            prepare("hum.lwo", "cells3c.jpg", "phong5.jpg", 25, 1.0F, {2.2F, 3.5F, 1.0F});
            prepare("blob1.lwo", "eftex.jpg", nullptr, 17, 7.0F, {2.4F, 3.3F, 3.6F});
            prepare("blob2.lwo", "cubet5.jpg", nullptr, 17, 22.0F, {1.4F, 3.2F, 3.1F});
            prepare("blob1.lwo", "phong5.jpg", nullptr, 17, 7.0F, {2.4F, 1.7F, 3.6F});
            prepare("hum.lwo", "phong5.jpg", nullptr, 17, 1.0F, {2.4F, 1.7F, 3.6F});
            scene.objectCount = 1;
            scene.cameraPosition = {6.0F, 0.0F, -40.0F};
            reveal.strip = picture("sidogrej91x351.tga", 91, 351);
        }

        void prepare(const char* file, const char* first, const char* second, std::uint32_t mode, float scale,
                     Vector3 spin) {
            Mesh& mesh = *scene.addObject();
            loadObject(mesh, file, first, second, mode, scale);
            mesh.spin = spin;
        }

        void render(Frame& frame, float t) {
            F += 1.0F;
            if (syncState.syncFlag59) {
                if (swap < 4)
                    scene.objects[0] = scene.objects[++swap];
                syncState.syncFlag59 = 0;
            }
            if (syncState.syncFlag37) {
                syncState.syncFlag37 = 0;
                scene.cameraPosition[2] = -30.0F;
            }
            if (syncState.syncFlag33) {
                syncState.syncFlag33 = 0;
                fadeStart = t;
                fading = true;
            }
            if (scene.cameraPosition[2] > -40.0)
                scene.cameraPosition[2] -= 1.0F;
            frame = background;
            reveal.advance(frame.data(), background.data());
            drawScene(scene, test::show, frame.data(), F * 10.0F);
            if (fading)
                blend(frame, black, 255 - std::min(truncate((t - fadeStart) * 3.5), 255), 0, frame.size());
        }
    };
};

TEST_F(Showcase, EveryMomentEqualsTheLiteralOne) {
    load({tumblingShowcase});
    SyncByte* const f37 = &syncState.syncFlag37;
    SyncByte* const f59 = &syncState.syncFlag59;
    SyncByte* const f33 = &syncState.syncFlag33;
    std::vector<Moment> script;
    for (int n = 0; n < 110; ++n) {
        const float time = 1300.0F + static_cast<float>(n) * 0.9F;
        if (n == 30 || n == 31 || n == 56)
            script.push_back({time, {f37}});
        else if (n % 12 == 10 && n < 72) // one more than there are objects for
            script.push_back({time, {f59, f37}});
        else if (n == 75 || n == 82)
            script.push_back({time, {f33}});
        else
            script.push_back({time});
    }
    Literal literal;
    compare(tumblingShowcase, literal, script);
}

} // namespace
} // namespace lumenfold
