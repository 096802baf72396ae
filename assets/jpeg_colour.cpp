#include "assets/jpeg_colour.h"

#include "assets/jpeg_kernels.h"

namespace lumenfold {

namespace {

// Factors 1, 2 and 4 put every sampling point at whole quarters: then whole numbers give what doubles give.
bool inQuarters(const JpegFrame& frame) {
    return frame.horizontalMax != 3 && frame.verticalMax != 3;
}

} // namespace

void jpegMixRows(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
                 std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        mixed[i] = static_cast<std::uint16_t>(top[i] * (4 - quarters) + bottom[i] * quarters);
}

void jpegDoubleRow(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        row[2 * i] = static_cast<std::uint8_t>(mixed[i] >> 2);
        row[2 * i + 1] = static_cast<std::uint8_t>((mixed[i] + mixed[i + 1]) >> 3);
    }
}

void jpegConvertRow(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count) {
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = jpegPixel(components[0][x], components[1][x], components[2][x], components[3][x]);
}

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
    const JpegKernels& kernels = jpegKernels();
    const int line = component.vertical * y;
    const std::uint8_t* top = component.row(line / frame.verticalMax);
    const int quarters = line % frame.verticalMax * (4 / frame.verticalMax);
    kernels.mixRows(top, top + component.stride, quarters, mixed.data(), static_cast<std::size_t>(component.width) + 2);
    if (2 * component.horizontal == frame.horizontalMax) {
        kernels.doubleRow(mixed.data(), samples.data(), static_cast<std::size_t>(frame.width + 1) / 2);
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

} // namespace lumenfold
