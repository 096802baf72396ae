// The JPEG reader beside libjpeg-turbo, on files that it has written.

#include "assets/jpeg.h"

#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace lumenfold::test {

namespace {

constexpr int width = 192;
constexpr int height = 144;

struct CloseTurbo {
    void operator()(void* handle) const { tjDestroy(handle); }
};
using Turbo = std::unique_ptr<void, CloseTurbo>;

// Smooth waves of colour with a little grain, as the show's own pictures have them.
std::vector<std::uint8_t> picture() {
    std::vector<std::uint8_t> rgb;
    unsigned state = 1;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c) {
                state = state * 1664525u + 1013904223u;
                const double wave =
                    70 * std::sin(0.04 * x * (c + 1) + 0.03 * y) + 40 * std::cos(0.05 * y - 0.02 * x * c);
                rgb.push_back(static_cast<std::uint8_t>(std::clamp(128 + wave + (state >> 28), 0.0, 255.0)));
            }
    return rgb;
}

std::vector<std::uint8_t> compress(int sampling) {
    const Turbo turbo(tjInitCompress());
    unsigned char* data = nullptr;
    unsigned long size = 0;
    const std::vector<std::uint8_t> rgb = picture();
    EXPECT_EQ(tjCompress2(turbo.get(), rgb.data(), width, 0, height, TJPF_RGB, &data, &size, sampling, 90,
                          TJFLAG_ACCURATEDCT),
              0);
    std::vector<std::uint8_t> file(data, data + size);
    tjFree(data);
    return file;
}

struct Peer {
    const char* name;
    int sampling;
    int border;
    double mean;
    int largest;
};

} // namespace

// Where the differences come from. Every sample is truncated three times (transform, chroma sampling, colour) where
// the other rounds: about half a step each, and a step of chroma weighs up to 1.772 in a colour. Subsampled chroma is
// read up to one and a half samples (4:1:1) further left: with these waves, which rise by up to 6 steps a pixel, that
// weighs as much again. The columns and the row that mix with what lies beyond the plane are left out.
TEST(JpegPeer, CloseToLibjpegTurbo) {
    const Peer peers[] = {
        {"4:4:4", TJSAMP_444, 1, 1.6, 6},  {"4:2:2", TJSAMP_422, 1, 2.2, 14}, {"4:2:0", TJSAMP_420, 1, 2.6, 16},
        {"4:1:1", TJSAMP_411, 3, 6.0, 48}, {"grey", TJSAMP_GRAY, 1, 0.7, 2},
    };
    for (const Peer& peer : peers) {
        const std::vector<std::uint8_t> file = compress(peer.sampling);
        std::vector<Pixel32> ours(width * height);
        decodeJpegFile(file.data(), file.size(), peer.name, ours.data(), {width, height, 0, 0, 0});
        std::vector<std::uint8_t> theirs(width * height * 4);
        const Turbo turbo(tjInitDecompress());
        ASSERT_EQ(tjDecompress2(turbo.get(), file.data(), file.size(), theirs.data(), width, 0, height, TJPF_BGRX,
                                TJFLAG_ACCURATEDCT),
                  0);
        double sum = 0;
        int largest = 0;
        for (int y = 0; y < height - 1; ++y)
            for (int x = 0; x < width - peer.border; ++x)
                for (int c = 0; c < 3; ++c) {
                    const auto i = static_cast<std::size_t>(y * width + x);
                    const int mine = ours[i] >> (8 * c) & 0xFF;
                    const int difference = std::abs(mine - theirs[4 * i + static_cast<std::size_t>(c)]);
                    sum += difference;
                    largest = std::max(largest, difference);
                }
        const double mean = sum / (3.0 * (width - peer.border) * (height - 1));
        std::printf("%-6s mean difference %.3f, largest %d\n", peer.name, mean, largest);
        EXPECT_LT(mean, peer.mean) << peer.name;
        EXPECT_LE(largest, peer.largest) << peer.name;
    }
}

} // namespace lumenfold::test
