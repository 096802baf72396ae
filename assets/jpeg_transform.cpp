#include "assets/jpeg_transform.h"

#include "core/convert.h"
#include "core/trig.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>

namespace lumenfold {

namespace {

constexpr double pi = 3.1415926535;

double scaleOf(int frequency) {
    return frequency == 0 ? 1.0 / std::sqrt(2.0) : 1.0;
}

double cosineOf(int frequency, int position) {
    return trig::cos(frequency * (2 * position + 1) * pi * 0.0625);
}

std::unique_ptr<JpegCosines> makeCosines() {
    auto table = std::make_unique<JpegCosines>();
    for (int v = 0; v < 8; ++v)
        for (int u = 0; u < 8; ++u)
            for (int y = 0; y < 8; ++y)
                for (int x = 0; x < 8; ++x)
                    table->products[v * 8 + u][y * 8 + x] =
                        scaleOf(u) * scaleOf(v) * 0.25 * cosineOf(u, x) * cosineOf(v, y);
    for (int u = 0; u < 8; ++u)
        for (int x = 0; x < 8; ++x)
            table->lines[u][x] = 0.5 * scaleOf(u) * cosineOf(u, x);
    return table;
}

std::uint8_t sample(double value) {
    return static_cast<std::uint8_t>(std::clamp(truncate(value), 0, 255));
}

using Values = double[64];

// With coefficients from -coefficientLimit to coefficientLimit - 1 the two ways to a value differ by less than 2^-15:
// by 70 roundings each, to 2^-53 of at most 64 x 2^11 / 4.
constexpr std::uint32_t coefficientLimit = 1u << 11;
constexpr double margin = 0x1p-14;

// Bit i: coefficient i is not 0. The others would add nothing.
std::uint64_t presentOf(const JpegBlock& block) {
    std::uint64_t present = 0;
    for (std::size_t i = 0; i < 64; ++i)
        present |= std::uint64_t{block.coefficients[i] != 0} << i;
    return present;
}

// Whether the two passes are possible and cheaper than the sums.
bool worthTwoPasses(const JpegBlock& block) {
    std::uint32_t range = 0;
    for (const std::int32_t coefficient : block.coefficients)
        range |= static_cast<std::uint32_t>(coefficient) + coefficientLimit;
    return block.count > 4 && range < 2 * coefficientLimit;
}

void sumProducts(const JpegBlock& block, std::uint64_t present, Values& values) {
    std::fill(std::begin(values), std::end(values), 0.0);
    for (std::uint64_t left = present; left != 0; left &= left - 1) {
        const auto i = static_cast<std::size_t>(std::countr_zero(left));
        const double coefficient = block.coefficients[i];
        const double* cosines = jpegCosines().products[i];
        for (int pixel = 0; pixel < 64; ++pixel)
            values[pixel] += cosines[pixel] * coefficient;
    }
}

void sumTwoPasses(const JpegBlock& block, std::uint64_t present, Values& values) {
    const auto& lines = jpegCosines().lines;
    std::fill(std::begin(values), std::end(values), 0.0);
    for (std::size_t v = 0; v < 8; ++v) {
        std::uint64_t left = present >> (v * 8) & 0xFF;
        if (left == 0)
            continue;
        double row[8] = {};
        for (; left != 0; left &= left - 1) {
            const auto u = static_cast<std::size_t>(std::countr_zero(left));
            const double coefficient = block.coefficients[v * 8 + u];
            for (int x = 0; x < 8; ++x)
                row[x] += lines[u][x] * coefficient;
        }
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                values[y * 8 + x] += lines[v][y] * row[x];
    }
}

// Writes the samples; false where a value is so near to a step that only the long sum decides.
bool writeCertain(const Values& values, std::uint8_t* destination, std::size_t stride) {
    bool certain = true;
    for (int y = 0; y < 8; ++y, destination += stride)
        for (int x = 0; x < 8; ++x) {
            destination[x] = sample(values[y * 8 + x] + (128.0 - margin));
            certain &= destination[x] == sample(values[y * 8 + x] + (128.0 + margin));
        }
    return certain;
}

} // namespace

const JpegCosines& jpegCosines() {
    static const std::unique_ptr<JpegCosines> table = makeCosines();
    return *table;
}

// All entries of coefficient 0 are equal: every cosine in them is that of 0.
void jpegFlatBlock(std::int32_t coefficient, std::uint8_t* destination, std::size_t stride) {
    const std::uint8_t level = sample(jpegCosines().products[0][0] * coefficient + 128.0);
    for (int y = 0; y < 8; ++y, destination += stride)
        std::fill_n(destination, 8, level);
}

void jpegTransformPlain(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    if (block.count == 1)
        return jpegFlatBlock(block.coefficients[0], destination, stride);
    const std::uint64_t present = presentOf(block);
    Values values;
    if (worthTwoPasses(block)) {
        sumTwoPasses(block, present, values);
        if (writeCertain(values, destination, stride))
            return;
    }
    sumProducts(block, present, values);
    for (int y = 0; y < 8; ++y, destination += stride)
        for (int x = 0; x < 8; ++x)
            destination[x] = sample(values[y * 8 + x] + 128.0);
}

} // namespace lumenfold
