#include "forge/checks.h"
#include "forge/picture_file.h"
#include "forge/recipe.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>

namespace lumenfold::art {

namespace {

// What a picture must hold besides its form and size.
enum Rule : unsigned {
    wrapsInX = 1,
    wrapsInY = 2,
    blackRim = 4,    // every border pixel exactly 0
    blackGround = 8, // added: a good part of it exactly 0
    darkRight = 16,  // columns 420 to 510 leave room for what is added there
    whiteKeyed = 32, // exactly white or clearly not
};

struct PictureRule {
    const char* fileName;
    int width;
    int height;
    unsigned rules;
};

constexpr unsigned seamless = wrapsInX | wrapsInY;

constexpr PictureRule pictureRules[] = {
    {"petrolenv.jpg", 256, 256, seamless},
    {"cell5a.jpg", 256, 256, seamless},
    {"cell1.jpg", 256, 256, seamless},
    {"cells3c.jpg", 256, 256, 0},
    {"phong5.jpg", 256, 256, 0},
    {"eftex.jpg", 256, 256, 0},
    {"cubet5.jpg", 256, 256, 0},
    {"cubet4.jpg", 256, 256, wrapsInY},
    {"fdgrid.jpg", 256, 256, seamless},
    {"slem4.jpg", 256, 256, seamless},
    {"hullpan.jpg", 256, 256, seamless},
    {"ribwall.jpg", 256, 256, seamless},
    {"hall1.jpg", 256, 256, seamless},
    {"ripple.jpg", 256, 256, seamless | blackGround},
    {"fire1.jpg", 256, 256, seamless | blackGround},
    {"plate1.jpg", 256, 256, wrapsInX | blackGround},
    {"film1.jpg", 256, 256, wrapsInX},
    {"tunbay1.jpg", 256, 256, seamless},
    {"tunbay2.jpg", 256, 256, seamless},
    {"lamps.jpg", 256, 256, wrapsInX},
    {"medal1.jpg", 256, 256, 0},
    {"cave1.jpg", 256, 256, seamless},
    {"cave2.jpg", 256, 256, seamless},
    {"cave3.jpg", 256, 256, seamless},
    {"dawn1.jpg", 256, 256, 0},
    {"glow1.jpg", 256, 256, blackRim | blackGround},
    {"bfs1.pcx", 32, 32, blackRim | blackGround},
    {"bfs0.pcx", 16, 16, blackRim | blackGround},
    {"petrolflare.jpg", 32, 32, blackRim | blackGround},
    {"goodlog512a.jpg", 512, 80, blackRim | blackGround},
    {"circ3.jpg", 512, 70, wrapsInX | wrapsInY},
    {"cptext6.pcx", 128, 512, wrapsInY | blackGround},
    {"sidogrej91x351.tga", 91, 351, 0},
    {"bajsa.jpg", 256, 36, wrapsInX},
    {"greets2.pcx", 32, 2048, wrapsInY},
    {"endscroll.pcx", 512, 1400, wrapsInY},
    {"designfusk.pcx", 512, 384, whiteKeyed},
    {"skum3.jpg", 512, 384, 0},
    {"morph3.jpg", 512, 384, 0},
    {"bkfire.jpg", 512, 384, blackGround},
    {"part3bak.jpg", 512, 384, darkRight},
    {"svampbak.jpg", 512, 384, 0},
    {"3dframe.jpg", 512, 384, 0},
};

int channel(Pixel32 pixel, int index) {
    return static_cast<int>(pixel >> (8 * index) & 255);
}

int difference(Pixel32 a, Pixel32 b) {
    return std::abs(channel(a, 0) - channel(b, 0)) + std::abs(channel(a, 1) - channel(b, 1)) +
           std::abs(channel(a, 2) - channel(b, 2));
}

// Mean difference between column (row) `from` and `to`.
double columnStep(const PictureFile& p, int from, int to) {
    double sum = 0;
    for (int y = 0; y < p.height; ++y) {
        sum += difference(p.at(from, y), p.at(to, y));
    }
    return sum / p.height;
}
double rowStep(const PictureFile& p, int from, int to) {
    double sum = 0;
    for (int x = 0; x < p.width; ++x) {
        sum += difference(p.at(x, from), p.at(x, to));
    }
    return sum / p.width;
}

// A seam shows when the step over the edge is larger than any step of two pixels within the picture (two, because
// the JPEG reader repeats the last column and row).
template <typename Step>
bool seamShows(const PictureFile& p, int count, Step step) {
    double largest = 0;
    for (int i = 0; i + 2 < count; ++i) {
        largest = std::max(largest, step(p, i, i + 2));
    }
    return step(p, count - 1, 0) > largest + 1;
}

double shareOf(const PictureFile& p, Pixel32 value) {
    return static_cast<double>(std::count(p.pixels.begin(), p.pixels.end(), value)) /
           static_cast<double>(p.pixels.size());
}

double meanLevel(const PictureFile& p, int left, int right) { // of the three channels, 0 to 255
    double sum = 0;
    for (int y = 0; y < p.height; ++y) {
        for (int x = left; x <= right; ++x) {
            sum += difference(p.at(x, y), 0) / 3.0;
        }
    }
    return sum / p.height / (right - left + 1);
}

bool nearlyWhite(Pixel32 pixel) {
    constexpr int level = 240;
    return pixel != 0xFFFFFF && std::min({channel(pixel, 0), channel(pixel, 1), channel(pixel, 2)}) > level;
}

std::string contentFault(const PictureFile& p, unsigned rules) {
    if ((rules & wrapsInX) != 0 && seamShows(p, p.width, columnStep)) {
        return "a seam shows between the last column and the first";
    }
    if ((rules & wrapsInY) != 0 && seamShows(p, p.height, rowStep)) {
        return "a seam shows between the last row and the first";
    }
    if ((rules & blackRim) != 0 && !borderIsBlack(p)) {
        return "the border is not exactly black";
    }
    if ((rules & blackGround) != 0 && shareOf(p, 0) < 0.10) {
        return "less than a tenth is exactly black";
    }
    if ((rules & darkRight) != 0 && meanLevel(p, 420, 510) > 60) {
        return "too bright under the strip at the right";
    }
    if ((rules & whiteKeyed) != 0 &&
        (shareOf(p, 0xFFFFFF) < 0.3 || std::any_of(p.pixels.begin(), p.pixels.end(), nearlyWhite))) {
        return "too little is exactly white, or some of it nearly";
    }
    return "";
}

std::vector<std::uint8_t> bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string fault(const PictureRule& rule, const std::string& path) {
    const std::string name = rule.fileName;
    if (name.substr(name.size() - 4) == ".jpg") {
        std::string form = jpegFault(bytesOf(path), rule.width, rule.height);
        if (!form.empty()) {
            return form;
        }
    }
    return contentFault(readPicture(path, rule.width, rule.height), rule.rules);
}

} // namespace

std::vector<Finding> checkPictures(const std::string& folder) {
    std::vector<PictureRule> rules(std::begin(pictureRules), std::end(pictureRules));
    for (const Recipe& recipe : textureRecipes()) { // textures without a rule of their own
        const auto sameName = [&](const PictureRule& rule) { return std::string(rule.fileName) == recipe.fileName; };
        if (std::none_of(rules.begin(), rules.end(), sameName)) {
            rules.push_back({recipe.fileName, textureSide, textureSide, 0});
        }
    }
    std::vector<Finding> findings;
    for (const PictureRule& rule : rules) {
        std::string text;
        try {
            text = fault(rule, folder + "/" + rule.fileName);
        } catch (const std::exception& error) {
            text = error.what();
        }
        findings.push_back({rule.fileName, text, !text.empty()});
    }
    return findings;
}

} // namespace lumenfold::art
