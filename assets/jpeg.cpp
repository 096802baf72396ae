#include "assets/jpeg.h"

#include "assets/file.h"
#include "assets/jpeg_colour.h"
#include "assets/jpeg_kernels.h"
#include "core/dynamic_error.h"

#include <algorithm>

namespace lumenfold {

namespace {

// What the bilinear sampling finds beside the part that counts is 0.
void clearBorder(JpegComponent& component) {
    for (int y = 0; y < component.height + 2; ++y) {
        std::uint8_t* row = component.samples.data() + static_cast<std::size_t>(y) * component.stride;
        std::fill(row + (y < component.height ? component.width : 0), row + component.width + 2, std::uint8_t{0});
    }
}

// Sampling beyond the plane darkens the last column and row of a subsampled picture; they take their neighbours'
// pixels, in any picture.
void repairEdges(Pixel32* pixels, std::int32_t width, std::int32_t height) {
    const auto rowLength = static_cast<std::size_t>(width);
    Pixel32* lastRow = pixels + rowLength * static_cast<std::size_t>(height - 1);
    if (height > 1)
        std::copy_n(lastRow - rowLength, rowLength, lastRow);
    if (width > 1)
        for (Pixel32* row = pixels; row <= lastRow; row += rowLength)
            row[rowLength - 1] = row[rowLength - 2];
}

} // namespace

JpegDecoder::JpegDecoder(const std::uint8_t* data, std::size_t size, std::int32_t width, std::int32_t height)
    : position(data), end(data + size), expectedWidth(width), expectedHeight(height) {
    parse();
    for (JpegComponent& component : frame.components)
        clearBorder(component);
}

bool JpegDecoder::convert(Pixel32* destination) const {
    if (frame.components.empty())
        return false;
    const JpegKernels& kernels = jpegKernels();
    const auto width = static_cast<std::size_t>(frame.width);
    const std::vector<std::uint8_t> zeros(width, std::uint8_t{0});
    const std::vector<std::uint8_t> middles(width, std::uint8_t{128});
    const std::uint8_t* rows[4] = {zeros.data(), middles.data(), middles.data(), zeros.data()};
    std::vector<JpegRowSampler> samplers;
    samplers.reserve(frame.components.size());
    for (const JpegComponent& component : frame.components)
        samplers.emplace_back(frame, component);
    for (int y = 0; y < frame.height; ++y) {
        for (std::size_t c = 0; c < samplers.size(); ++c)
            rows[c] = samplers[c].row(y);
        kernels.convertRow(rows, destination + static_cast<std::size_t>(y) * width, width);
    }
    return true;
}

void decodeJpegFile(const std::uint8_t* data, std::size_t size, const std::string& fileName, Pixel32* destination,
                    FrameInfo target) {
    try {
        const JpegDecoder decoder(data, size, target.width, target.height);
        if (decoder.convert(destination))
            repairEdges(destination, target.width, target.height);
    } catch (const JpegError& error) {
        throw DynamicError(fileName + ": " + error.what());
    }
}

void readJpegFile(const char* fileName, Pixel32* destination, std::int32_t, std::int32_t, FrameInfo target,
                  std::int32_t) {
    const std::vector<std::uint8_t> file = requireFile(fileName);
    decodeJpegFile(file.data(), file.size(), fileName, destination, target);
}

} // namespace lumenfold
