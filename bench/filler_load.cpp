#include "bench/filler_load.h"

#include "render/depth_buffer.h"
#include "render/filler_affine.h"
#include "render/filler_perspective.h"

#include <algorithm>
#include <random>

namespace lumenfold::bench {

namespace {

constexpr FrameInfo picture = {512, 384, 1, 22050, 1};

} // namespace

const char* fillerName(FillerMode mode) {
    switch (mode) {
    case FillerMode::Perspective:
        return "perspective 0x09";
    case FillerMode::PerspectiveAdd:
        return "perspective added 0x29";
    case FillerMode::Affine:
        return "affine 0x401";
    case FillerMode::AffineAdd:
        return "affine added 0x501";
    case FillerMode::TwoLayer:
        return "two layers 0x19";
    }
    return "";
}

std::vector<LoadTriangle> loadTriangles(int side) {
    std::vector<LoadTriangle> triangles;
    // a slanting plane, one texel per pixel in the middle
    const auto corner = [](int x, int y) {
        const auto px = static_cast<float>(x);
        const auto py = static_cast<float>(y);
        return LoadCorner{px, py, 4.0F / (1.0F + 0.001F * px + 0.0005F * py), px * 0.9F, py * 0.9F};
    };
    for (int y = 0; y + side <= picture.height; y += side) {
        for (int x = 0; x + side <= picture.width; x += side) {
            const int right = x + side;
            const int bottom = y + side;
            triangles.push_back({corner(x, y), corner(right, y), corner(x, bottom)});
            triangles.push_back({corner(right, y), corner(right, bottom), corner(x, bottom)});
        }
    }
    return triangles;
}

std::vector<Pixel32> loadTexture() {
    std::vector<Pixel32> texels(texturePixels);
    std::mt19937 random;
    for (Pixel32& texel : texels)
        texel = static_cast<Pixel32>(random()) & 0xFFFFFF;
    return texels;
}

FillerLoad::FillerLoad(FillerMode mode, int side)
    : mode_(mode), triangles_(loadTriangles(side)), texture_(loadTexture()), second_(loadTexture()),
      target_(static_cast<std::size_t>(picture.width) * picture.height), depth_(target_.size()),
      previousDepth_(depthBuffer) {
    depthBuffer = depth_.data();
    std::fill(texture_.begin(), texture_.end(), Pixel32{0x01000000}); // shows in every mode
    drawPicture();
    covered_ = static_cast<std::int64_t>(target_.size()) - std::count(target_.begin(), target_.end(), Pixel32{0});
    texture_ = loadTexture();
}

FillerLoad::~FillerLoad() {
    depthBuffer = previousDepth_;
}

void FillerLoad::drawPicture() {
    if (bias_ > 1000.0F) { // before 1/z drowns in the bias
        bias_ = 0.0F;
        std::fill(depth_.begin(), depth_.end(), 0.0F);
    }
    bias_ += 1.0F;
    Pixel32* target = target_.data();
    for (const LoadTriangle& t : triangles_) {
        if (mode_ == FillerMode::Perspective || mode_ == FillerMode::PerspectiveAdd) {
            PerspectiveCorner corners[3];
            for (std::size_t i = 0; i < 3; ++i)
                corners[i] = {t[i].x, t[i].y, t[i].z, t[i].u, t[i].v};
            if (mode_ == FillerMode::Perspective)
                drawTexturedPerspective(corners, texture_.data(), picture, target, bias_);
            else
                drawTexturedPerspectiveAdd(corners, texture_.data(), picture, target, bias_, 3);
            continue;
        }
        AffineCorner corners[3];
        for (std::size_t i = 0; i < 3; ++i)
            corners[i] = {t[i].x, t[i].y, t[i].z, t[i].u, t[i].v, t[i].v, t[i].u};
        if (mode_ == FillerMode::Affine)
            drawTriangleAffine(corners, texture_.data(), picture, target, bias_);
        else if (mode_ == FillerMode::AffineAdd)
            drawTriangleAffineAdd(corners, texture_.data(), picture, target, bias_);
        else
            drawTriangleTwoLayer(corners, texture_.data(), second_.data(), picture, target, bias_);
    }
}

} // namespace lumenfold::bench
