// The inverse transform, compiled for every target: a first try in single precision, its error known, then the
// definition's sums for those rows in which the error could change a sample.

#include "assets/jpeg_transform.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "assets/jpeg_transform.cpp"
#include <hwy/foreach_target.h> // before anything that includes hwy/highway.h

#include "core/convert.h"
#include "core/lanes.h"

#include <bit>
#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {
namespace {

using D = hn::CappedTag<float, 8>;
using DI = Ints<D>;
constexpr int width = lanesOf<D>;
constexpr int parts = 8 / width; // vectors to eight values

// Bit i: coefficient i is not 0. The others would add nothing.
std::uint64_t presentOf(const JpegBlock& block) {
    std::uint64_t present = 0;
    for (int i = 0; i < 64; i += width) {
        const auto zeros = hn::Eq(hn::Load(DI(), block.coefficients.data() + i), hn::Zero(DI()));
        std::uint8_t bits[8] = {};
        hn::StoreMaskBits(DI(), hn::Not(zeros), bits);
        present |= std::uint64_t{bits[0]} << i;
    }
    return present;
}

#if HWY_HAVE_FLOAT64

using Doubles = hn::CappedTag<double, 4>;
constexpr int doubleWidth = lanesOf<Doubles>;

// Truncated and clamped; what fits no 32-bit integer is 0, as the smallest one is.
HWY_INLINE void storeSamples(hn::Vec<Doubles> values, std::uint8_t* destination) {
    const Doubles d;
    const hn::Rebind<std::int32_t, Doubles> di;
    const auto clamped = hn::Min(hn::Max(values, hn::Zero(d)), hn::Set(d, 255.0));
    const auto whole = hn::DemoteTo(di, hn::IfThenElseZero(hn::Lt(values, hn::Set(d, 2147483648.0)), clamped));
    const hn::Rebind<std::uint8_t, Doubles> bytes;
    hn::StoreU(hn::DemoteTo(bytes, whole), bytes, destination);
}

// The sums for some neighbouring rows.
template <int rows>
void sumProducts(const JpegBlock& block, std::uint64_t present, int first, std::uint8_t* destination,
                 std::size_t stride) {
    constexpr int count = rows * 8 / doubleWidth;
    const Doubles d;
    const JpegCosines& cosines = jpegCosines();
    hn::Vec<Doubles> sums[count];
    for (auto& sum : sums)
        sum = hn::Zero(d);
    for (std::uint64_t left = present; left != 0; left &= left - 1) {
        const auto i = static_cast<std::size_t>(std::countr_zero(left));
        const auto coefficient = hn::Set(d, block.coefficients[i]);
        const double* products = cosines.products[i] + 8 * first;
        for (int n = 0; n < count; ++n)
            sums[n] = hn::Add(sums[n], hn::Mul(hn::Load(d, products + doubleWidth * n), coefficient));
    }
    for (int n = 0; n < count; ++n) {
        const int at = n * doubleWidth;
        storeSamples(hn::Add(sums[n], hn::Set(d, 128.0)),
                     destination + static_cast<std::size_t>(at / 8) * stride + at % 8);
    }
}

#else

// The sums for some neighbouring rows.
template <int rows>
void sumProducts(const JpegBlock& block, std::uint64_t present, int first, std::uint8_t* destination,
                 std::size_t stride) {
    double sums[8 * rows] = {};
    for (std::uint64_t left = present; left != 0; left &= left - 1) {
        const auto i = static_cast<std::size_t>(std::countr_zero(left));
        const double* products = jpegCosines().products[i] + 8 * first;
        for (int n = 0; n < 8 * rows; ++n)
            sums[n] += products[n] * block.coefficients[i];
    }
    for (int n = 0; n < 8 * rows; ++n) {
        const std::int32_t sample = truncate(sums[n] + 128.0);
        destination[static_cast<std::size_t>(n / 8) * stride + n % 8] =
            static_cast<std::uint8_t>(sample < 0     ? 0
                                      : sample > 255 ? 255
                                                     : sample);
    }
}

#endif

// 256 x cos(k pi / 16) / 2. Both passes together scale by 2^16: their results are 16.16 fixed point.
constexpr float cosine1 = 125.540515892f;
constexpr float cosine2 = 118.256580161f;
constexpr float cosine3 = 106.428110375f;
constexpr float cosine4 = 90.509667992f;
constexpr float cosine5 = 71.112989827f;
constexpr float cosine6 = 48.983479343f;
constexpr float cosine7 = 24.971561218f;

// A value's way through transformLines() takes at most five roundings, that of the cosine included, and a cosine is at
// most 0.491. Two passes are off by 10 x 2^-24 x 0.491^2 of the coefficients' absolute sum, less than 2.5 x 2^-24; the
// products of the roundings, what the 10 digits of pi make of the cosines' symmetries (3e-10 for each coefficient) and
// the roundings of the definition itself stay below the rest. Here in units of 2^-16.
constexpr float errorPerCoefficient = 2.75f * 0x1p-24f * 0x1p+16f;

// Beyond this sum of absolute values the fixed-point numbers and the errors would grow too large.
constexpr float largestSum = 0x1p+14f;

using Line = hn::Vec<D>;

HWY_INLINE Line scaled(Line value, float factor) {
    return hn::Mul(value, hn::Set(D(), factor));
}

// One dimension of the transform across eight vectors, step apart.
template <int step>
HWY_INLINE void transformLines(Line* x) {
    const auto at = [x](int n) HWY_ATTR -> Line& { return x[n * step]; };
    const Line sum = scaled(hn::Add(at(0), at(4)), cosine4);
    const Line difference = scaled(hn::Sub(at(0), at(4)), cosine4);
    const Line outer = hn::Add(scaled(at(2), cosine2), scaled(at(6), cosine6));
    const Line inner = hn::Sub(scaled(at(2), cosine6), scaled(at(6), cosine2));
    const Line even[4] = {hn::Add(sum, outer), hn::Add(difference, inner), hn::Sub(difference, inner),
                          hn::Sub(sum, outer)};
    const Line odd[4] = {hn::Add(hn::Add(scaled(at(1), cosine1), scaled(at(3), cosine3)),
                                 hn::Add(scaled(at(5), cosine5), scaled(at(7), cosine7))),
                         hn::Sub(hn::Sub(scaled(at(1), cosine3), scaled(at(3), cosine7)),
                                 hn::Add(scaled(at(5), cosine1), scaled(at(7), cosine5))),
                         hn::Add(hn::Sub(scaled(at(1), cosine5), scaled(at(3), cosine1)),
                                 hn::Add(scaled(at(5), cosine7), scaled(at(7), cosine3))),
                         hn::Add(hn::Sub(scaled(at(1), cosine7), scaled(at(3), cosine5)),
                                 hn::Sub(scaled(at(5), cosine3), scaled(at(7), cosine1)))};
    for (int n = 0; n < 4; ++n) {
        at(n) = hn::Add(even[n], odd[n]);
        at(7 - n) = hn::Sub(even[n], odd[n]);
    }
}

// Rows of eight values, one after the other, become columns.
template <class V>
HWY_INLINE void transpose(V* x) {
    HWY_ALIGN float fours[2][32]; // of every column the first four rows, and the last four
    for (int part = 0; part < parts; ++part)
        for (int half = 0; half < 2; ++half) {
            const Line* rows = x + 4 * half * parts + part;
            hn::StoreInterleaved4(rows[0], rows[parts], rows[2 * parts], rows[3 * parts], D(),
                                  fours[half] + 4 * width * part);
        }
    const hn::FixedTag<float, 4> four;
    for (int column = 0; column < 8; ++column) {
        const auto first = hn::Load(four, fours[0] + 4 * column);
        const auto last = hn::Load(four, fours[1] + 4 * column);
        if constexpr (parts == 1) {
            x[column] = hn::Combine(hn::DFromV<V>(), last, first);
        } else {
            x[2 * column] = first;
            x[2 * column + 1] = last;
        }
    }
}

// The absolute values, those of the frequencies 0 with the share that their smaller cosines have.
HWY_INLINE float absoluteSum(const Line* rows) {
    HWY_ALIGN constexpr float shares[8] = {0.53f, 0.73f, 0.73f, 0.73f, 0.73f, 0.73f, 0.73f, 0.73f};
    Line sum = hn::Zero(D());
    for (int part = 0; part < parts; ++part)
        sum = hn::Add(sum, hn::Mul(hn::Abs(rows[part]), hn::Load(D(), shares + part * width)));
    for (int n = parts; n < 8 * parts; ++n)
        sum = hn::Add(sum, hn::Abs(rows[n]));
    return hn::GetLane(hn::SumOfLanes(D(), sum));
}

// Rounded to the nearest whole number; all values fit 32 bits.
HWY_INLINE hn::Vec<DI> nearest(Line values) {
#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
    return hn::Vec<DI>{_mm256_cvtps_epi32(values.raw)}; // without the care that Highway takes of those that do not
#else
    return hn::NearestInt(values);
#endif
}

using DU = hn::RebindToUnsigned<DI>;

// Writes rows whose eight bytes stand in two vectors, four bytes of a row in each lane.
HWY_INLINE void writeRows(hn::Vec<DU> left, hn::Vec<DU> right, std::uint8_t* destination, std::size_t stride) {
    const DU d;
    HWY_ALIGN std::uint32_t pairs[2][width]; // of each 128 bits the first two rows, and the last two
    hn::Store(hn::InterleaveLower(d, left, right), d, pairs[0]);
    hn::Store(hn::InterleaveUpper(d, left, right), d, pairs[1]);
    for (int row = 0; row < width; ++row)
        std::memcpy(destination + static_cast<std::size_t>(row) * stride,
                    &pairs[row / 2 % 2][row / 4 * 4 + row % 2 * 2], 8);
}

// Writes the samples from eight columns; returns a bit for every row in which a value is within the error from a step.
HWY_INLINE unsigned writeColumns(const Line* columns, int error, std::uint8_t* destination, std::size_t stride) {
    const DI d;
    const auto middle = hn::Set(d, 128 << 16);
    const auto fraction = hn::Set(d, 0xFFFF);
    const auto below = hn::Set(d, error);
    const auto within = hn::Set(d, 2 * error + 1);
    unsigned rows = 0;
    for (int part = 0; part < parts; ++part) {
        hn::Vec<DU> bytes[2] = {hn::Zero(DU()), hn::Zero(DU())}; // of columns 0 to 3 and 4 to 7
        auto doubt = hn::Lt(within, hn::Zero(d));                // none yet
        for (int x = 7; x >= 0; --x) {
            const auto fixed = hn::Add(nearest(columns[x * parts + part]), middle);
            doubt = hn::Or(doubt, hn::Gt(within, hn::And(hn::Add(fixed, below), fraction)));
            const auto sample = hn::Min(hn::Max(hn::ShiftRight<16>(fixed), hn::Zero(d)), hn::Set(d, 255));
            bytes[x / 4] = hn::Or(hn::ShiftLeft<8>(bytes[x / 4]), hn::BitCast(DU(), sample));
        }
        writeRows(bytes[0], bytes[1], destination + static_cast<std::size_t>(part * width) * stride, stride);
        std::uint8_t bits[8] = {};
        hn::StoreMaskBits(d, doubt, bits);
        rows |= static_cast<unsigned>(bits[0]) << (part * width);
    }
    return rows;
}

// False, and nothing is written, where the coefficients are too large for it.
HWY_INLINE bool transformSingle(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    Line lines[8 * parts];
    for (int n = 0; n < 8 * parts; ++n)
        lines[n] = hn::ConvertTo(D(), hn::Load(DI(), block.coefficients.data() + width * n));
    const float sum = absoluteSum(lines);
    if (!(sum < largestSum))
        return false;
    for (int part = 0; part < parts; ++part)
        transformLines<parts>(lines + part);
    transpose(lines);
    for (int part = 0; part < parts; ++part)
        transformLines<parts>(lines + part);
    // and one for the rounding to fixed point, another for that of the error itself
    const int error = static_cast<int>(sum * errorPerCoefficient) + 2;
    unsigned rows = writeColumns(lines, error, destination, stride);
    if (rows == 0)
        return true;
    const std::uint64_t present = presentOf(block);
    for (; rows != 0; rows &= rows - 1) {
        const int y = std::countr_zero(rows);
        sumProducts<1>(block, present, y, destination + static_cast<std::size_t>(y) * stride, stride);
    }
    return true;
}

void transform(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    constexpr int fewCoefficients = 2; // their sums are the shorter way
    if (block.count > fewCoefficients && transformSingle(block, destination, stride))
        return;
    const std::uint64_t present = presentOf(block);
    sumProducts<4>(block, present, 0, destination, stride);
    sumProducts<4>(block, present, 4, destination + 4 * stride, stride);
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "core/convert.h"
#include "core/dispatch.h"
#include "core/trig.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace lumenfold {

LUMENFOLD_TARGETS(transform);

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
    return table;
}

// A block of nothing but its mean. All cosine entries of coefficient 0 are equal: every cosine in them is that of 0.
void fillFlatBlock(std::int32_t coefficient, std::uint8_t* destination, std::size_t stride) {
    const double level = jpegCosines().products[0][0] * coefficient + 128.0;
    for (int y = 0; y < 8; ++y, destination += stride)
        std::fill_n(destination, 8, static_cast<std::uint8_t>(std::clamp(truncate(level), 0, 255)));
}

} // namespace

const JpegCosines& jpegCosines() {
    static const std::unique_ptr<JpegCosines> table = makeCosines();
    return *table;
}

void jpegTransform(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    if (block.count == 1)
        fillFlatBlock(block.coefficients[0], destination, stride);
    else
        LUMENFOLD_TARGET(transform)(block, destination, stride);
}

} // namespace lumenfold

#endif // HWY_ONCE
