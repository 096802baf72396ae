// The JPEG reader beside libjpeg-turbo, on files that it has written.

#include "assets/jpeg.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio> // before jpeglib.h, which lacks it
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <jpeglib.h>
#include <memory>
#include <turbojpeg.h>
#include <vector>

namespace lumenfold::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

struct CloseTurbo {
    void operator()(void* handle) const { tjDestroy(handle); }
};
using Turbo = std::unique_ptr<void, CloseTurbo>;

struct Size {
    int width;
    int height;
};

// Smooth waves of colour with a little grain, as the show's own pictures have them.
Bytes picture(Size size) {
    Bytes rgb;
    unsigned state = 1;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < 3; ++c) {
                state = state * 1664525u + 1013904223u;
                const double wave =
                    70 * std::sin(0.04 * x * (c + 1) + 0.03 * y) + 40 * std::cos(0.05 * y - 0.02 * x * c);
                rgb.push_back(static_cast<std::uint8_t>(std::clamp(128 + wave + (state >> 28), 0.0, 255.0)));
            }
    return rgb;
}

Bytes compress(Size size, int sampling) {
    const Turbo turbo(tjInitCompress());
    unsigned char* data = nullptr;
    unsigned long length = 0;
    const Bytes rgb = picture(size);
    EXPECT_EQ(tjCompress2(turbo.get(), rgb.data(), size.width, 0, size.height, TJPF_RGB, &data, &length, sampling, 90,
                          TJFLAG_ACCURATEDCT),
              0);
    Bytes file(data, data + length);
    tjFree(data);
    return file;
}

// The components of each scan, by their places in the frame.
using Scans = std::vector<std::vector<int>>;

Bytes compressScans(Size size, int horizontal, int vertical, int restartInterval, const Scans& scans) {
    jpeg_compress_struct codec;
    jpeg_error_mgr errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char* data = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&codec, &data, &length);
    codec.image_width = static_cast<JDIMENSION>(size.width);
    codec.image_height = static_cast<JDIMENSION>(size.height);
    codec.input_components = 3;
    codec.in_color_space = JCS_RGB;
    jpeg_set_defaults(&codec);
    codec.comp_info[0].h_samp_factor = horizontal;
    codec.comp_info[0].v_samp_factor = vertical;
    codec.restart_interval = static_cast<unsigned>(restartInterval);
    std::vector<jpeg_scan_info> script;
    for (const std::vector<int>& scan : scans) {
        jpeg_scan_info info{static_cast<int>(scan.size()), {}, 0, 63, 0, 0};
        std::copy(scan.begin(), scan.end(), info.component_index);
        script.push_back(info);
    }
    codec.scan_info = script.data();
    codec.num_scans = static_cast<int>(script.size());
    jpeg_start_compress(&codec, TRUE);
    Bytes rgb = picture(size);
    while (codec.next_scanline < codec.image_height) {
        JSAMPROW row = &rgb[codec.next_scanline * static_cast<std::size_t>(size.width) * 3];
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    Bytes file(data, data + length);
    std::free(data);
    return file;
}

std::vector<Pixel32> decode(const Bytes& file, Size size) {
    std::vector<Pixel32> pixels(static_cast<std::size_t>(size.width * size.height));
    EXPECT_EQ(
        decodeJpegFile(file.data(), file.size(), "picture.jpg", pixels.data(), {size.width, size.height, 0, 0, 0}), "");
    return pixels;
}

Bytes turboDecode(const Bytes& file, Size size) {
    Bytes pixels(static_cast<std::size_t>(size.width * size.height) * 4);
    const Turbo turbo(tjInitDecompress());
    EXPECT_EQ(tjDecompress2(turbo.get(), file.data(), file.size(), pixels.data(), size.width, 0, size.height, TJPF_BGRX,
                            TJFLAG_ACCURATEDCT),
              0);
    return pixels;
}

// Mean and largest difference of a colour, without the columns and the row that mix with what lies beyond the plane.
struct Difference {
    double mean = 0.0;
    int largest = 0;
};

Difference differenceFromTurbo(const Bytes& file, Size size, int border) {
    const std::vector<Pixel32> ours = decode(file, size);
    const Bytes theirs = turboDecode(file, size);
    Difference result;
    for (int y = 0; y < size.height - 1; ++y)
        for (int x = 0; x < size.width - border; ++x)
            for (int c = 0; c < 3; ++c) {
                const auto i = static_cast<std::size_t>(y * size.width + x);
                const int mine = ours[i] >> (8 * c) & 0xFF;
                const int difference = std::abs(mine - theirs[4 * i + static_cast<std::size_t>(c)]);
                result.mean += difference;
                result.largest = std::max(result.largest, difference);
            }
    result.mean /= 3.0 * (size.width - border) * (size.height - 1);
    return result;
}

// Calls change(position of the marker, length of marker and segment) for every segment before the first scan's data;
// a change may replace or remove the segment and gives the length that it has then.
template <class Change>
void atSegments(Bytes& file, Change change) {
    for (std::size_t i = 2; i + 4 < file.size();) {
        const std::uint8_t marker = file[i + 1];
        i += change(marker, i, 2 + static_cast<std::size_t>(file[i + 2] << 8 | file[i + 3]));
        if (marker == 0xDA)
            return;
    }
}

auto at(Bytes& file, std::size_t position) {
    return file.begin() + static_cast<std::ptrdiff_t>(position);
}

void removeHuffmanTables(Bytes& file) {
    atSegments(file, [&](std::uint8_t marker, std::size_t position, std::size_t length) -> std::size_t {
        if (marker != 0xC4)
            return length;
        file.erase(at(file, position), at(file, position + length));
        return 0;
    });
}

void giveAllComponentsOneNumber(Bytes& file) {
    atSegments(file, [&](std::uint8_t marker, std::size_t position, std::size_t length) {
        for (std::size_t c = 0; c < 3; ++c) {
            if (marker == 0xC0)
                file[position + 10 + 3 * c] = 7;
            if (marker == 0xDA)
                file[position + 5 + 2 * c] = 7;
        }
        return length;
    });
}

void announceRestarts(Bytes& file) {
    file.insert(at(file, 2), {0xFF, 0xDD, 0, 4, 0, 5});
}

} // namespace

// Where the differences come from. Every sample is truncated three times (transform, chroma sampling, colour) where
// the other rounds: about half a step each, and a step of chroma weighs up to 1.772 in a colour. Subsampled chroma is
// read up to one and a half samples (4:1:1) further left: with these waves, which rise by up to 6 steps a pixel, that
// weighs as much again.
TEST(JpegPeer, CloseToLibjpegTurbo) {
    const struct {
        const char* name;
        int sampling;
        int border;
        double mean;
        int largest;
    } peers[] = {
        {"4:4:4", TJSAMP_444, 1, 1.6, 6},  {"4:2:2", TJSAMP_422, 1, 2.2, 14}, {"4:2:0", TJSAMP_420, 1, 2.6, 16},
        {"4:1:1", TJSAMP_411, 3, 6.0, 48}, {"grey", TJSAMP_GRAY, 1, 0.7, 2},
    };
    for (const auto& peer : peers) {
        const Size size{192, 144};
        const Difference difference = differenceFromTurbo(compress(size, peer.sampling), size, peer.border);
        std::printf("%-6s mean difference %.3f, largest %d\n", peer.name, difference.mean, difference.largest);
        EXPECT_LT(difference.mean, peer.mean) << peer.name;
        EXPECT_LE(difference.largest, peer.largest) << peer.name;
    }
}

// The same coefficients in other arrangements: the same picture, which is also the other decoder's.
TEST(JpegPeer, ScansAndTablesOfOtherPrograms) {
    const Scans interleaved = {{0, 1, 2}};
    const Scans separate = {{0}, {1}, {2}};
    const Scans mixed = {{1, 2}, {0}};
    // 33 x 17 and 50 x 41: planes whose own blocks are fewer than those of the coded units
    for (const Size size : {Size{33, 17}, Size{50, 41}, Size{192, 144}})
        for (const auto& [horizontal, vertical] : {std::pair(1, 1), std::pair(2, 1), std::pair(2, 2), std::pair(4, 1)})
            for (const int interval : {0, 3}) {
                const Bytes plain = compressScans(size, horizontal, vertical, interval, interleaved);
                for (const Scans& scans : {separate, mixed}) {
                    const Bytes file = compressScans(size, horizontal, vertical, interval, scans);
                    EXPECT_EQ(decode(file, size), decode(plain, size)) << horizontal << vertical << ' ' << interval;
                    EXPECT_EQ(turboDecode(file, size), turboDecode(plain, size));
                }
            }
    const Size size{50, 41};
    const Bytes file = compress(size, TJSAMP_420);
    for (const auto change : {removeHuffmanTables, giveAllComponentsOneNumber, announceRestarts}) {
        Bytes changed = file;
        change(changed);
        ASSERT_NE(changed, file);
        EXPECT_EQ(decode(changed, size), decode(file, size));
        if (change != announceRestarts) { // the other decoder stops there
            EXPECT_EQ(turboDecode(changed, size), turboDecode(file, size));
        }
    }
}

// A file that ends between its scans keeps what it has; all targets agree on any end.
TEST(JpegPeer, SeparateScansCutAnywhere) {
    const Size size{33, 17};
    const Bytes whole = compressScans(size, 2, 2, 0, {{0}, {1}, {2}});
    std::vector<Pixel32> pixels(static_cast<std::size_t>(size.width * size.height));
    for (std::size_t length = 0; length + 2 < whole.size(); length += 3) {
        const Bytes file(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        std::vector<Pixel32> first;
        onEveryTarget([&] {
            EXPECT_NE(decodeJpegFile(file.data(), file.size(), "cut.jpg", pixels.data(), {33, 17, 0, 0, 0}), "");
            if (first.empty())
                first = pixels;
            EXPECT_EQ(first, pixels) << length;
        });
    }
}

// Pictures that other programs wrote for a game.
TEST(JpegPeer, PicturesOfAPackage) {
    const std::filesystem::path folder = "/usr/share/games/ceferino/ima";
    if (!std::filesystem::exists(folder))
        GTEST_SKIP() << "ceferino-data is not installed";
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".jpg")
            continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        const Bytes file{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        const Turbo turbo(tjInitDecompress());
        Size size{};
        int sampling = 0;
        ASSERT_EQ(tjDecompressHeader2(turbo.get(), const_cast<std::uint8_t*>(file.data()), file.size(), &size.width,
                                      &size.height, &sampling),
                  0);
        const Difference difference = differenceFromTurbo(file, size, 1);
        std::printf("%-16s %d x %d, mean difference %.3f\n", entry.path().filename().c_str(), size.width, size.height,
                    difference.mean);
        EXPECT_LT(difference.mean, 3.0) << entry.path();
        ++count;
    }
    EXPECT_GE(count, 15);
}

} // namespace lumenfold::test
