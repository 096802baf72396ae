#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/studio.h"
#include "forge/trace.h"

// "skum3.jpg": a sea of liquid chrome under soft boxes. Two bands, a strip of text and a ring of flares are added over
// it, so it stays dark to middle, with a wide quiet fold in the middle of the frame.

namespace lumenfold::art {

namespace {

float foldHeight(float x, float z) {
    const float bendX =
        0.80F * x + 0.55F * sine(0.9F * z + 0.7F) + 0.9F * gradientNoise({0.33F * x, 3.1F, 0.33F * z}, 5);
    const float bendZ =
        0.80F * z + 0.60F * sine(0.7F * x - 0.5F) + 0.9F * gradientNoise({0.33F * x, 9.7F, 0.33F * z}, 6);
    float ridge = sine(1.7F * bendX + 1.4F * sine(1.1F * bendZ));
    ridge = ridge * (1.25F - 0.35F * ridge * ridge);
    return 0.50F * ridge + 0.26F * sine(2.1F * bendZ + 0.8F * bendX) + 0.05F * sine(4.3F * bendX - 2.6F * bendZ);
}

World liquidWorld() {
    World world;
    world.nearest = [](Vec3 p) -> Nearest {
        if (p.y > 1.15F) { // above the highest crest
            return {0.8F * (p.y - 1.0F), 0};
        }
        return {std::min(0.4F, 0.42F * (p.y - foldHeight(p.x, p.z))), 0};
    };
    world.material = [](int, Vec3 p, Vec3) {
        Material chrome;
        chrome.metal = 1;
        chrome.base = mix(Colour{0.16F, 0.22F, 0.24F}, Colour{0.62F, 0.74F, 0.78F},
                          smoothStep(-0.85F, 0.4F, foldHeight(p.x, p.z)));
        chrome.film = 0.30F;
        chrome.filmThickness = 0.62F + 0.5F * gradientNoise({0.6F * p.x, 2, 0.6F * p.z}, 9);
        return chrome;
    };
    world.sky = [](Vec3 direction) {
        // above the studio's lamps one long crease of light, rising three degrees to the right
        static const SoftBox crease = {{0.1F, 0.80F, 0.60F}, {-0.05F, 1, 0}, 2.4F, 0.014F, 0.030F};
        return studioLight(direction) + palette::ice * (4.0F * seen(crease, direction));
    };
    world.fog = palette::deep * 0.5F;
    world.fogDensity = 0.11F;
    world.fogStart = 5;
    world.farthest = 24;
    world.reflections = 3;
    world.ambientReach = 0; // the heights understate distances; hollows are darkened by height instead
    return world;
}

} // namespace

void makeLiquidFolds(const std::string& path) {
    const Camera camera = {{31, 2.7F, 3.7F}, {31.15F, -0.45F, 8.1F}, 1.39F, 0};
    Picture picture = photograph(liquidWorld(), camera, 512, 384, 4);
    picture = withBloom(picture, {3, 0.10F, 18, 0.10F}, Edge::clamp);
    addVignette(picture, 0.55F);
    // the left third is quiet: text scrolls over it
    picture.change([](Colour c, int x, int) { return c * mix(0.13F, 1, smoothStep(50, 230, static_cast<float>(x))); });
    writeBitmap(path, developed(picture, {1.25F, true, 0.6F}));
}

} // namespace lumenfold::art
