#include "artwork/drafts.h"

#include "forge/encode.h"
#include "forge/noise.h"

namespace lumenfold::art {

namespace {

enum class Ground { opaque, added, keyed }; // filled; black around a lit middle; white within a frame

struct Draft {
    const char* fileName;
    int width;
    int height;
    Ground ground;
};

// One entry per call of draftOf<i>, so that each recipe is a plain function.
constexpr Draft drafts[] = {
    {"petrolenv.jpg", 256, 256, Ground::opaque},
    {"cell5a.jpg", 256, 256, Ground::opaque},
    {"cell1.jpg", 256, 256, Ground::opaque},
    {"cells3c.jpg", 256, 256, Ground::opaque},
    {"phong5.jpg", 256, 256, Ground::opaque},
    {"eftex.jpg", 256, 256, Ground::opaque},
    {"cubet5.jpg", 256, 256, Ground::opaque},
    {"cubet4.jpg", 256, 256, Ground::opaque},
    {"fdgrid.jpg", 256, 256, Ground::opaque},
    {"slem4.jpg", 256, 256, Ground::opaque},
    {"hullpan.jpg", 256, 256, Ground::opaque},
    {"ribwall.jpg", 256, 256, Ground::opaque},
    {"hall1.jpg", 256, 256, Ground::opaque},
    {"ripple.jpg", 256, 256, Ground::added},
    {"fire1.jpg", 256, 256, Ground::added},
    {"plate1.jpg", 256, 256, Ground::added},
    {"film1.jpg", 256, 256, Ground::opaque},
    {"bfs1.pcx", 32, 32, Ground::added},
    {"bfs0.pcx", 16, 16, Ground::added},
    {"petrolflare.jpg", 32, 32, Ground::added},
    {"skum3.jpg", 512, 384, Ground::opaque},
    {"morph3.jpg", 512, 384, Ground::opaque},
    {"bkfire.jpg", 512, 384, Ground::added},
    {"part3bak.jpg", 512, 384, Ground::opaque},
    {"svampbak.jpg", 512, 384, Ground::opaque},
    {"3dframe.jpg", 512, 384, Ground::opaque},
    {"goodlog512a.jpg", 512, 80, Ground::added},
    {"circ3.jpg", 512, 70, Ground::added},
    {"cptext6.pcx", 128, 512, Ground::added},
    {"sidogrej91x351.tga", 91, 351, Ground::added},
    {"bajsa.jpg", 256, 36, Ground::opaque},
    {"greets2.pcx", 32, 2048, Ground::opaque},
    {"designfusk.pcx", 512, 384, Ground::keyed},
    {"endscroll.pcx", 512, 1400, Ground::opaque},
};
constexpr std::size_t draftCount = sizeof drafts / sizeof drafts[0];

void makeDraft(const Draft& draft, std::uint32_t seed, const std::string& path) {
    const Period period = {std::max(1, draft.width / 32), std::max(1, draft.height / 32)};
    Picture picture = renderPicture(draft.width, draft.height, 1, [&](float x, float y, std::uint32_t) -> Colour {
        const Vec3 place = {x * static_cast<float>(period.x) / static_cast<float>(draft.width),
                            y * static_cast<float>(period.y) / static_cast<float>(draft.height), 0.5F};
        const float n = fractalNoise(place, 4, seed, period);
        Colour light = mix(palette::deep, palette::teal, smoothStep(-0.3F, 0.6F, n));
        light += palette::amber * (0.5F * smoothStep(0.3F, 0.6F, gradientNoise(place, seed + 9, period)));
        const float dx = 2 * x / static_cast<float>(draft.width) - 1;
        const float dy = 2 * y / static_cast<float>(draft.height) - 1;
        const float middle = smoothStep(1, 0, std::sqrt(dx * dx + dy * dy));
        if (draft.ground == Ground::keyed && std::max(std::fabs(dx), std::fabs(dy)) < 0.94F) {
            return {100, 100, 100};
        }
        return light * (draft.ground == Ground::added ? 0.5F * middle * middle : 1);
    });
    writeBitmap(path, developed(picture));
}

template <std::size_t index>
void draftOf(const std::string& path) {
    makeDraft(drafts[index], static_cast<std::uint32_t>(100 + index), path);
}

template <std::size_t... indices>
std::vector<Recipe> listOf(std::index_sequence<indices...>) {
    return {Recipe{drafts[indices].fileName, true, draftOf<indices>}...};
}

} // namespace

std::vector<Recipe> draftRecipes() {
    return listOf(std::make_index_sequence<draftCount>());
}

} // namespace lumenfold::art
