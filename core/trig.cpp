#include "core/trig.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

// Range reduction: W. J. Cody and W. Waite, Software Manual for the Elementary Functions (1980), with pi / 2 in
// parts, the quotient's products exact for |angle| below 2^20 or so, and the remainder carried in two doubles.
// Kernels: the Taylor polynomials of sine and cosine on [-pi/4, pi/4] and, for the arc tangent, the addition theorem
// atan(t) = atan(k / 16) + atan((t - k / 16) / (1 + t k / 16)) with the Taylor polynomial of the small rest.

namespace lumenfold::trig {

namespace {

constexpr double twoOverPi = 0x1.45F306DC9C883p-1;
constexpr double pi = 0x1.921FB54442D18p+1;

// pi / 2 in parts of 33 bits, so that their products with a quotient of up to 20 bits are exact.
constexpr double halfPi1 = 0x1.921FB544p+0;
constexpr double halfPi2 = 0x1.0B4611A6p-34;
constexpr double halfPi3 = 0x1.3198A2E037073p-69;

// The angle's remainder modulo pi / 2, as high + low, and the number of quarter turns taken off.
struct Reduced {
    double high;
    double low;
    std::int64_t quarters;
};

Reduced reduce(double angle) {
    if (!(std::fabs(angle) < 0x1p+30)) // never met in the show; a finite angle still gives a defined result
        angle = std::isfinite(angle) ? std::fmod(angle, 2.0 * pi) : 0.0;
    const double quotient = std::nearbyint(angle * twoOverPi);
    const double first = angle - quotient * halfPi1;
    const double second = quotient * halfPi2;
    const double high = first - second;
    const double lost = (first - high) - second; // what the subtraction rounded away
    const double tail = lost - quotient * halfPi3;
    const double sum = high + tail;
    return {sum, (high - sum) + tail, static_cast<std::int64_t>(quotient)};
}

// sin(x + low) for |x| <= pi / 4.
double sinKernel(double x, double low) {
    const double z = x * x;
    const double p =
        -1.0 / 6 +
        z * (1.0 / 120 +
             z * (-1.0 / 5040 + z * (1.0 / 362880 + z * (-1.0 / 39916800 +
                                                         z * (1.0 / 6227020800 + z * (-1.0 / 1307674368000 +
                                                                                      z * (1.0 / 355687428096000)))))));
    return x + (z * x * p + low * (1.0 - 0.5 * z));
}

// cos(x + low) for |x| <= pi / 4.
double cosKernel(double x, double low) {
    const double z = x * x;
    const double p =
        1.0 / 24 +
        z * (-1.0 / 720 +
             z * (1.0 / 40320 +
                  z * (-1.0 / 3628800 +
                       z * (1.0 / 479001600 +
                            z * (-1.0 / 87178291200 + z * (1.0 / 20922789888000 - z * (1.0 / 6402373705728000)))))));
    const double halfSquare = 0.5 * z;
    const double rounded = 1.0 - halfSquare;
    return rounded + (((1.0 - rounded) - halfSquare) + (z * z * p - x * low));
}

double quarterTurn(const Reduced& r, std::int64_t quarters) {
    const double value = (quarters & 1) != 0 ? cosKernel(r.high, r.low) : sinKernel(r.high, r.low);
    return (quarters & 2) != 0 ? -value : value;
}

// atan(k / 16), k = 0 to 16, each as the nearest double and the rest.
struct Split {
    double high;
    double low;
};
constexpr std::array<Split, 17> atanSteps{{
    {0x0.0p+0, 0x0.0p+0},
    {0x1.ff55bb72cfdeap-5, -0x1.c934d86d23f1dp-60},
    {0x1.fd5ba9aac2f6ep-4, -0x1.cd37686760c17p-59},
    {0x1.7b97b4bce5b02p-3, 0x1.347b0b4f881cap-58},
    {0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57},
    {0x1.362773707ebccp-2, -0x1.963a544b672d8p-57},
    {0x1.6f61941e4def1p-2, -0x1.c63aae6f6e918p-56},
    {0x1.a64eec3cc23fdp-2, -0x1.24dec1b50b7ffp-56},
    {0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56},
    {0x1.0657e94db30d0p-1, -0x1.d5b495f6349e6p-56},
    {0x1.1e00babdefeb4p-1, -0x1.928df287a668fp-58},
    {0x1.345f01cce37bbp-1, 0x1.1021137c71102p-55},
    {0x1.4978fa3269ee1p-1, 0x1.2419a87f2a458p-56},
    {0x1.5d58987169b18p-1, 0x1.0028e4bc5e7cap-57},
    {0x1.700a7c5784634p-1, -0x1.8c34d25aadef6p-56},
    {0x1.819d0b7158a4dp-1, -0x1.bf76229d3b917p-56},
    {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55},
}};

constexpr Split halfPiSplit{0x1.921FB54442D18p+0, 0x1.1A62633145C07p-54};
constexpr Split piSplit{0x1.921FB54442D18p+1, 0x1.1A62633145C07p-53};

// The value without its lower 27 bits.
double highHalf(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    bits &= ~((std::uint64_t{1} << 27) - 1);
    std::memcpy(&value, &bits, sizeof bits);
    return value;
}

// atan(y / x) for 0 <= y <= x, x > 0, as high + low.
Split atanRatio(double y, double x) {
    const auto k = static_cast<std::size_t>(y / x * 16.0 + 0.5);
    const double step = static_cast<double>(k) / 16.0;
    const double xHigh = highHalf(x); // step has five bits: both products are exact
    const double t = ((y - step * xHigh) - step * (x - xHigh)) / (x + step * y);
    const double z = t * t;
    const double p = -1.0 / 3 + z * (1.0 / 5 + z * (-1.0 / 7 + z * (1.0 / 9 + z * (-1.0 / 11 + z * (1.0 / 13)))));
    const double sum = atanSteps[k].high + t;
    const double lost = k == 0 ? 0.0 : (atanSteps[k].high - sum) + t;
    return {sum, lost + (t * z * p + atanSteps[k].low)};
}

// a - b as high + low, |a.high| >= |b.high|.
Split subtract(Split a, Split b) {
    const double sum = a.high - b.high;
    return {sum, ((a.high - sum) - b.high) + (a.low - b.low)};
}

} // namespace

double sin(double angle) {
    const Reduced r = reduce(angle);
    if (r.quarters == 0 && std::fabs(angle) < 0x1p-27)
        return angle; // keeps the sign of zero
    return quarterTurn(r, r.quarters);
}

double cos(double angle) {
    const Reduced r = reduce(angle);
    return quarterTurn(r, r.quarters + 1);
}

double atan2(double y, double x) {
    double ay = std::fabs(y);
    double ax = std::fabs(x);
    if (std::isnan(ay) || std::isnan(ax))
        return ay + ax;
    if (ay == 0.0 && ax == 0.0)
        return std::signbit(x) ? std::copysign(pi, y) : y;
    if (std::isinf(ay) || std::isinf(ax)) { // only the direction counts
        ay = std::isinf(ay) ? 1.0 : 0.0;
        ax = std::isinf(ax) ? 1.0 : 0.0;
    }
    if (ax > 0x1p+1000 || ay > 0x1p+1000) { // keeps the sums below the largest double
        ax *= 0x1p-100;
        ay *= 0x1p-100;
    }
    Split angle = ay <= ax ? atanRatio(ay, ax) : subtract(halfPiSplit, atanRatio(ax, ay));
    if (std::signbit(x))
        angle = subtract(piSplit, angle);
    return std::copysign(angle.high + angle.low, y);
}

} // namespace lumenfold::trig
