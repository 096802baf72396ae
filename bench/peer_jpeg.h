#pragma once

#include <cstdint>
#include <vector>

namespace lumenfold::bench {

using FileBytes = std::vector<std::uint8_t>;

// One decoded picture: 32 bits a pixel. The peers throw std::runtime_error when they cannot read a file.
struct PeerPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

void decodeWithTurbo(const FileBytes& file, PeerPicture& picture);
void decodeWithStb(const FileBytes& file, PeerPicture& picture);

// Runs the work in a child process in which libjpeg-turbo uses no vector code, and returns the work's result.
double withoutTurboVectors(double (*work)(const std::vector<FileBytes>& files), const std::vector<FileBytes>& files);

} // namespace lumenfold::bench
