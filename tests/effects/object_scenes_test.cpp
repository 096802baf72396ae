// The scenes made of objects beside a camera and positions told step by step; the renderer itself is tested elsewhere.

#include "effects/framed_fire_pole.h"
#include "effects/sprite_ring_cube.h"
#include "effects/stealth_flight.h"
#include "effects/twin_tunnel.h"
#include "effects/welding_film.h"

#include "core/trig.h"
#include "render/matrix.h"
#include "render/ray_field.h"
#include "render/scene.h"
#include "show_scenes.h"
#include "tests/support/pixels.h"

#include <algorithm>

namespace lumenfold {
namespace {

using trig::cos;
using trig::sin;

class ObjectScenes : public test::ShowScenes {
  protected:
    // Frames of the shipped scene at these demo times, from a depth bias of 0 and empty depth on.
    std::vector<test::Frame> shippedFrames(const std::vector<Effect>& scenes, Effect scene,
                                           const std::vector<float>& times, bool film = false) {
        load(scenes);
        if (film)
            syncState.syncFlag59 = 1;
        sharedDepthBias = 0.0F;
        std::vector<test::Frame> frames;
        test::Frame frame(pixelCount(test::show), 0x00102030);
        for (const float time : times) {
            draw(scene, frame, time);
            frames.push_back(frame);
        }
        clearDepthBuffer();
        return frames;
    }

    static void setFloat(float& target, double value) { target = static_cast<float>(value); }

    // Texel (j, r) is the pixel of column 2j in row trunc(1.5r).
    static test::Frame halved(const Pixel32* pixels) {
        test::Frame texture(texturePixels);
        for (std::size_t r = 0; r < 256; ++r)
            for (std::size_t j = 0; j < 256; ++j)
                texture[r * 256 + j] = pixels[static_cast<std::size_t>(static_cast<double>(r) * 1.5) * 512 + 2 * j];
        return texture;
    }
};

TEST_F(ObjectScenes, FlightFollowsItsPath) {
    // local time is 1.5 x; x 13.7 is reached near local time 140, and the camera stays there
    const std::vector<float> times{900.0F,  930.0F,  990.0F,  993.0F,  995.0F,  1040.0F,
                                   1100.0F, 1121.0F, 1121.5F, 1180.0F, 1206.5F, 1207.0F};
    const auto frames = shippedFrames({stealthFlight}, stealthFlight, times);
    Scene scene;
    add(scene, "mytube3b.lwo");
    for (MeshMaterial& material : add(scene, "water.lwo").materials)
        material.mode = 0x29;
    Mesh& aircraft = add(scene, "stealth.lwo");
    for (MeshMaterial& material : aircraft.materials)
        material.mode = 0x401;
    ASSERT_GT(aircraft.materials.size(), 1U);
    aircraft.materials[1].mode = 0x501;
    aircraft.position = {10.0F, 2.2F, -30.0F};
    scene.cameraPosition = {6.5F, 2.5F, -10.0F};
    float bias = 0.0F;
    for (std::size_t n = 0; n < times.size(); ++n) {
        const float lt = static_cast<float>((times[n] - times[0]) * 1.5);
        setFloat(scene.cameraPosition[2], sin(lt * 0.01) * 8.0 - 10.0 + lt * 0.04);
        const double s = sin(lt * 0.01);
        if (scene.cameraPosition[0] < 13.7)
            setFloat(scene.cameraPosition[0], s * s * 7.5 + 6.5);
        setFloat(scene.cameraAngles[1], lt * -0.8);
        setFloat(aircraft.position[2], lt * 0.2 - 65.0);
        test::Frame expected = blank();
        drawScene(scene, test::show, expected.data(), bias += 3.0F);
        if (lt > 332) {
            const auto a = static_cast<std::uint8_t>(static_cast<int>((460 - lt) * 2));
            for (Pixel32& pixel : expected)
                pixel = test::perByte(pixel, 0, [a](Pixel32 p, Pixel32) { return p * a >> 8; });
        }
        ASSERT_EQ(frames[n], expected) << "frame " << n;
    }
    EXPECT_GE(scene.cameraPosition[0], 13.7F);
}

TEST_F(ObjectScenes, FirePoleIsCircled) {
    const std::vector<float> times{500.0F, 501.0F, 503.5F, 540.0F, 560.0F, 600.0F};
    const auto frames = shippedFrames({framedFirePole}, framedFirePole, times);
    constexpr FrameInfo pane{320, 220, 0, 0, 0};
    load({framedFirePole});
    EXPECT_EQ(sharedDepthBias, 3.0F); // one step for the three claws that loading turns
    Scene scene;
    add(scene, "credt.lwo");
    const struct {
        std::size_t axis;
        float place, turn;
    } claws[] = {{0, -0.75F, 0.0F}, {0, 0.75F, 180.0F}, {2, 0.75F, 90.0F}, {2, -0.75F, -90.0F}};
    for (const auto& claw : claws) {
        Mesh& mesh = add(scene, "claw2.lwo");
        mesh.position[claw.axis] = claw.place;
        composeRotation(mesh.orientation, mesh.orientation, 0.0F, claw.turn, 0.0F);
    }
    for (const char* name : {"firepole.lwo", "firebase.lwo", "nameplate.lwo"})
        for (MeshMaterial& material : add(scene, name).materials)
            material.mode = 0x29;
    scene.objects[6]->position[1] = 0.2F;
    scene.objects[7]->position[1] = 0.2F;
    for (MeshMaterial& material : scene.objects[7]->materials)
        material.doubleSided = 1;
    float bias = 0.0F;
    test::Frame frame = picture("3dframe.jpg", 512, 384);
    for (std::size_t n = 0; n < times.size(); ++n) {
        const float T = times[n] - times[0];
        const double r = cos(0.16 * T + 0.4) * 0.2 + 1.3;
        setFloat(scene.cameraPosition[0], sin(0.04 * T + 3.14159) * r);
        setFloat(scene.cameraPosition[1], sin(0.08 * T) * 0.2 + 0.33);
        setFloat(scene.cameraPosition[2], cos(0.04 * T + 3.14159) * r);
        setFloat(scene.cameraAngles[1], 3.14159 - 2.2933607 * T);
        setFloat(scene.cameraAngles[2], cos(0.04 * T + 3.14159) * 25.0);
        setFloat(scene.objects[5]->spin[1], (n == 0 ? 0.0F : times[n] - times[n - 1]) * 2.2933607);
        for (MeshMaterial& material : scene.objects[5]->materials)
            material.scroll += 8;
        test::Frame expected(320 * 220);
        drawScene(scene, pane, expected.data(), bias += 3.0F);
        for (std::size_t y = 0; y < 220; ++y)
            std::copy_n(&expected[y * 320], 320, &frame[(85 + y) * 512 + 160]);
        ASSERT_EQ(frames[n], frame) << "frame " << n;
    }
}

TEST_F(ObjectScenes, HalvesOfTheStillFlyApart) {
    const std::vector<float> times{100.0F, 126.5F, 127.5F, 129.0F, 131.0F, 135.0F, 140.0F};
    load({spriteRingCube, twinTunnel, weldingFilm});
    test::Frame still(pixelCount(test::show));
    for (std::size_t i = 0; i < still.size(); ++i)
        frozenStill()[i] = still[i] = static_cast<Pixel32>(i * 37);
    sharedDepthBias = 0.0F;
    std::vector<test::Frame> frames(times.size(), blank());
    for (std::size_t n = 0; n < times.size();
         ++n) // the first frame, already late, only takes the textures; the split begins at 27.0
        draw(weldingFilm, frames[n], n == 0 ? times[0] - 0.5F : times[n]);
    clearDepthBuffer();

    test::Frame texture = halved(still.data());
    const test::Frame back = picture("morph3.jpg", 512, 384);
    Scene scene;
    for (const char* name : {"svets1.lwo", "svets2.lwo"})
        add(scene, name).materials[0].colourLayer->texels = texture.data();
    scene.objects[0]->spin[2] = 2.0F;
    scene.objects[1]->spin[2] = -2.0F;
    scene.cameraPosition = {0.0F, 1.92F, -4.0F};
    float bias = 0.0F;
    for (std::size_t n = 1; n < times.size(); ++n) {
        const float lt = times[n] - (times[0] - 0.5F);
        test::Frame expected = back;
        drawScene(scene, test::show, expected.data(), bias += 3.0F);
        ASSERT_EQ(frames[n], expected) << "frame " << n;
        setFloat(scene.objects[0]->position[0], scene.objects[0]->position[0] - 0.05);
        setFloat(scene.objects[1]->position[0], scene.objects[1]->position[0] + 0.05);
        for (const auto& half : {scene.objects[0], scene.objects[1]})
            setFloat(half->position[2], half->position[2] - 0.1);
        setFloat(scene.cameraPosition[1], 1.92 - sin((lt - 27) * 0.15) * 2.5);
    }
}

TEST_F(ObjectScenes, FilmRollsOverTheFloor) {
    const std::vector<float> times{200.0F, 203.0F, 210.0F, 240.0F, 270.0F, 289.0F};
    const auto frames = shippedFrames({twinTunnel, weldingFilm, stealthFlight}, weldingFilm, times, true);
    test::Frame first = halved(heldPicture());
    test::Frame second = halved(picture("morph3.jpg", 512, 384).data());
    RayField floor = makeRayField(RayShape::Plane, getTexture("fdgrid.jpg"));
    Scene scene;
    Mesh& film = add(scene, "filmrulle1.lwo");
    for (MeshMaterial& material : film.materials)
        material.mode = 0x401;
    film.materials[0].colourLayer->texels = first.data();
    film.materials[1].colourLayer->texels = second.data();
    scene.cameraPosition = {-0.9F, 0.0F, -0.41F};
    float bias = 0.0F;
    for (std::size_t n = 0; n < times.size(); ++n) {
        const float lt = times[n] - times[0];
        test::Frame expected = blank();
        drawRayField(floor, expected.data(), test::show);
        for (std::size_t y = 0; y < 384; ++y)
            for (std::size_t x = 479; x <= 510; ++x)
                expected[y * 512 + x] = 0;
        floor.scrollV -= 4;
        floor.scrollU += 4;
        floor.angles[1] = -0.6F;
        setFloat(floor.angles[2], cos(lt * 0.035) * 3.14159);
        drawScene(scene, test::show, expected.data(), bias += 3.0F);
        ASSERT_EQ(frames[n], expected) << "frame " << n;
        setFloat(scene.cameraPosition[0], lt * 0.01 - 0.9);
        setFloat(scene.cameraPosition[2], -0.41 - sin(lt * 0.035) * 3.0);
        setFloat(scene.cameraAngles[2], sin(lt * 0.035) * 90.0);
    }
}

} // namespace
} // namespace lumenfold
