#include "forge/checks.h"
#include "forge/manifest.h"
#include "forge/picture_file.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>

namespace lumenfold::art {

namespace {

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

std::string fault(const PictureAsset& asset, const std::string& path) {
    if (path.substr(path.size() - 4) == ".jpg") {
        std::string form = jpegFault(bytesOf(path), asset.width, asset.height);
        if (!form.empty()) {
            return form;
        }
    }
    return contentFault(readPicture(path, asset.width, asset.height), asset.rules);
}

} // namespace

std::vector<Finding> checkPictures(const std::string& folder) {
    std::vector<Finding> findings;
    for (const Asset& asset : manifest()) {
        const auto* picture = std::get_if<PictureAsset>(&asset.form);
        if (picture == nullptr)
            continue;
        std::string text;
        try {
            text = fault(*picture, folder + "/" + asset.fileName);
        } catch (const std::exception& error) {
            text = error.what();
        }
        findings.push_back({asset.fileName, text, !text.empty()});
    }
    return findings;
}

} // namespace lumenfold::art
