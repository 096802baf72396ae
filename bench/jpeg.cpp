#include "assets/jpeg.h"

#include "bench/measure.h"
#include "bench/peer_jpeg.h"
#include "bench/sections.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <string>

namespace lumenfold::bench {

namespace {

std::vector<FileBytes> jpegFiles() {
    std::vector<std::filesystem::path> names;
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
        if (entry.path().extension() == ".jpg")
            names.push_back(entry.path());
    }
    std::sort(names.begin(), names.end());
    std::vector<FileBytes> files;
    for (const auto& name : names) {
        std::ifstream file(name, std::ios::binary);
        files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return files;
}

double turboMicroseconds(const std::vector<FileBytes>& files) {
    PeerPicture picture;
    return sample([&] {
               for (const FileBytes& file : files)
                   decodeWithTurbo(file, picture);
           })
        .median();
}

double stbMicroseconds(const std::vector<FileBytes>& files) {
    PeerPicture picture;
    return sample([&] {
               for (const FileBytes& file : files)
                   decodeWithStb(file, picture);
           })
        .median();
}

// Our reader is given the size of each picture.
std::vector<FrameInfo> pictureSizes(const std::vector<FileBytes>& files) {
    std::vector<FrameInfo> sizes;
    for (const FileBytes& file : files) {
        PeerPicture picture;
        decodeWithTurbo(file, picture);
        sizes.push_back({picture.width, picture.height, 0, 0, 0});
    }
    return sizes;
}

double ownMicroseconds(const std::vector<FileBytes>& files, const std::vector<FrameInfo>& sizes) {
    std::size_t largest = 0;
    for (const FrameInfo& size : sizes)
        largest = std::max(largest, static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    std::vector<Pixel32> pixels(largest);
    return sample([&] {
               for (std::size_t i = 0; i < files.size(); ++i)
                   decodeJpegFile(files[i].data(), files[i].size(), "", pixels.data(), sizes[i]);
           })
        .median();
}

} // namespace

void measureJpeg(Report& report, bool peers) {
    const std::vector<FileBytes> files = jpegFiles();
    if (files.empty())
        return;
    // before this process uses the library itself
    const double turboPlain = peers ? withoutTurboVectors(turboMicroseconds, files) : 0.0;
    const std::vector<FrameInfo> sizes = pictureSizes(files);
    const double pixels = std::accumulate(sizes.begin(), sizes.end(), 0.0, [](double sum, const FrameInfo& size) {
        return sum + static_cast<double>(size.width) * size.height;
    });

    report.section("JPEG reader, from memory");
    const double own = pixels / ownMicroseconds(files, sizes);
    const std::string name = "JPEG reader, " + std::to_string(files.size()) + " files";
    if (!peers) {
        report.add(name, own, "Mpixel/s");
        return;
    }
    report.add(name, own, "Mpixel/s", "libjpeg-turbo", pixels / turboMicroseconds(files));
    report.add(name, own, "Mpixel/s", "libjpeg-turbo without SIMD", pixels / turboPlain);
    report.add(name, own, "Mpixel/s", "stb_image", pixels / stbMicroseconds(files));
}

} // namespace lumenfold::bench
