#include "art/textures.h"

#include "art/encode.h"

// The additive sprites. They overlap by the dozen, so their energy is set by what the sum may reach, and their rim
// is exactly black.

namespace lumenfold::art {

namespace {

// place: -1 to 1 across the sprite.
Picture sprite(int side, const std::function<Colour(float x, float y)>& shade) {
    const float half = static_cast<float>(side) / 2;
    return renderPicture(side, side, 8, [&](float x, float y, std::uint32_t) -> Colour {
        const float u = x / half - 1;
        const float v = y / half - 1;
        const float edge = power(saturate((0.92F - length(u, v)) / 0.92F), 1.6F);
        return shade(u, v) * edge;
    });
}

constexpr Develop plain = {1, false, 0}; // no grain: what is black stays black

} // namespace

// "bfs1.pcx": flare of the ring, where neighbours overlap four- to tenfold, and the welding torch.
void makeRingFlare(const std::string& path) {
    const Picture picture = sprite(32, [](float x, float y) {
        const float r = length(x, y);
        const float core = exponential(-r * r * 46);
        const float halo = 0.105F * exponential(-r * 4.4F);
        const float ring = bell(r - 0.60F, 0.045F);
        const float streak = 0.16F * exponential(-std::fabs(y + 0.06F * x) * 26 - std::fabs(x) * 3.2F) +
                             0.05F * exponential(-std::fabs(x) * 34 - std::fabs(y) * 6);
        Colour light = palette::ice * (0.24F * core + 0.6F * streak);
        light += mix(palette::teal, fromHex(0x7FD8FF), 0.25F) * (1.7F * halo + 0.8F * streak);
        light += palette::amber * (0.030F * ring + 0.030F * exponential(-r * r * 9));
        return light;
    });
    writeBitmap(path, developed(picture, plain));
}

// "bfs0.pcx": a spark, and one of the 1000 to 1700 flares of a metaball: a few levels of halo, a small core.
void makeSparkFlare(const std::string& path) {
    const Picture picture = sprite(16, [](float x, float y) {
        const float r = length(x, y);
        const float core = exponential(-r * r * 16);
        return palette::amber * (0.085F * core) + palette::ice * (0.020F * exponential(-r * r * 60)) +
               palette::ember * (0.045F * exponential(-r * r * 5)) + palette::teal * (0.014F * exponential(-r * 2.2F));
    });
    writeBitmap(path, developed(picture, plain));
}

// "petrolflare.jpg": flare of the feedback ring: an iridescent bubble.
void makePetrolFlare(const std::string& path) {
    const Picture picture = sprite(32, [](float x, float y) {
        const float r = length(x, y);
        const float turn = 0.5F + 0.5F * sine(angleOf(y, x) + 0.9F);
        const Colour film = iridescence(0.12F + 0.34F * r + 0.24F * turn);
        Colour light = film * film * (0.34F * bell(r - 0.40F, 0.16F) * (0.35F + 0.65F * turn));
        light += palette::petrol * (0.22F * exponential(-r * r * 14));
        light += palette::teal * (0.16F * bell(length(x + 0.20F, y + 0.26F), 0.12F));
        light += palette::amber * (0.24F * bell(length(x - 0.26F, y - 0.30F), 0.14F)) +
                 palette::violet * (0.10F * bell(r - 0.56F, 0.10F));
        return light;
    });
    writeBitmap(path, developed(picture, plain));
}

} // namespace lumenfold::art
