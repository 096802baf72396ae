#include "assets/jpeg_planes.h"

#include "assets/jpeg_kernels.h"

#include <algorithm>

namespace lumenfold {

namespace {

// Factors 1, 2 and 4 put every sampling point at whole quarters: then whole numbers give what doubles give.
bool inQuarters(const JpegFrame& frame) {
    return frame.horizontalMax != 3 && frame.verticalMax != 3;
}

// A component at the resolution of the picture, row by row: bilinear between the samples at x H / Hmax, y V / Vmax
// (no half-sample offset), truncated. Keeps a reference to the component.
class JpegRowSampler {
  public:
    JpegRowSampler(const JpegFrame& frame, const JpegComponent& component);

    // The frame's width of samples, valid until the next call.
    const std::uint8_t* row(int y);

  private:
    void sampleQuarters(int y);
    void sampleDouble(int y);

    const JpegFrame& frame;
    const JpegComponent& component;
    std::vector<std::uint8_t> samples;
    std::vector<std::uint16_t> mixed; // two rows of the plane mixed for one of the picture, in quarters
};

JpegRowSampler::JpegRowSampler(const JpegFrame& theFrame, const JpegComponent& theComponent)
    : frame(theFrame), component(theComponent) {
    const auto width = static_cast<std::size_t>(frame.width);
    samples.resize(width + 2);
    mixed.resize(width + 2);
}

const std::uint8_t* JpegRowSampler::row(int y) {
    if (component.horizontal == frame.horizontalMax && component.vertical == frame.verticalMax)
        return component.row(y);
    if (inQuarters(frame))
        sampleQuarters(y);
    else
        sampleDouble(y);
    return samples.data();
}

void JpegRowSampler::sampleQuarters(int y) {
    const int line = component.vertical * y;
    const std::uint8_t* top = component.row(line / frame.verticalMax);
    const int quarters = line % frame.verticalMax * (4 / frame.verticalMax);
    jpegMixRows(top, top + component.stride, quarters, mixed.data(), static_cast<std::size_t>(component.width) + 2);
    if (2 * component.horizontal == frame.horizontalMax) {
        jpegDoubleRow(mixed.data(), samples.data(), static_cast<std::size_t>(frame.width + 1) / 2);
        return;
    }
    for (int x = 0; x < frame.width; ++x) {
        const int column = component.horizontal * x;
        const int right = column % frame.horizontalMax * (4 / frame.horizontalMax);
        const std::uint16_t* left = &mixed[static_cast<std::size_t>(column / frame.horizontalMax)];
        samples[static_cast<std::size_t>(x)] =
            static_cast<std::uint8_t>((left[0] * (4 - right) + left[1] * right) >> 4);
    }
}

void JpegRowSampler::sampleDouble(int y) {
    const double line = static_cast<double>(component.vertical * y) / frame.verticalMax;
    const int iy = component.vertical * y / frame.verticalMax;
    const double fy = line - iy;
    const std::uint8_t* top = component.row(iy);
    const std::uint8_t* bottom = top + component.stride;
    for (int x = 0; x < frame.width; ++x) {
        const double column = static_cast<double>(component.horizontal * x) / frame.horizontalMax;
        const int ix = component.horizontal * x / frame.horizontalMax;
        const double fx = column - ix;
        const double value =
            (top[ix] * (1 - fy) + bottom[ix] * fy) * (1 - fx) + (top[ix + 1] * (1 - fy) + bottom[ix + 1] * fy) * fx;
        samples[static_cast<std::size_t>(x)] = static_cast<std::uint8_t>(value);
    }
}

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

void convertPlanes(JpegFrame& frame, Pixel32* destination) {
    if (frame.components.empty())
        return;
    for (JpegComponent& component : frame.components)
        clearBorder(component);
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
        jpegConvertRow(rows, destination + static_cast<std::size_t>(y) * width, width);
    }
    repairEdges(destination, frame.width, frame.height);
}

} // namespace lumenfold
