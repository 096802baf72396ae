#include "forge/maths.h"

#include <numbers>

namespace lumenfold::art {

using std::numbers::ln2;

double exponential(double x) {
    if (x < -700.0) {
        return 0.0;
    }
    // x = n ln 2 + r with |r| at most half of ln 2, where thirteen terms of the series reach double precision.
    const double n = std::floor(x / ln2 + 0.5);
    const double r = x - n * ln2;
    double sum = 1.0;
    for (int k = 13; k >= 1; --k) {
        sum = 1.0 + sum * r / k;
    }
    return std::ldexp(sum, static_cast<int>(n));
}

double logarithm(double x) {
    // x = m 2^e with m near 1; ln m = 2 artanh((m - 1) / (m + 1)).
    int exponent = 0;
    double mantissa = std::frexp(x, &exponent);
    if (mantissa < 0.7071067811865476) {
        mantissa *= 2.0;
        --exponent;
    }
    const double q = (mantissa - 1.0) / (mantissa + 1.0);
    double sum = 0.0;
    for (int k = 21; k >= 1; k -= 2) {
        sum = sum * q * q + 1.0 / k;
    }
    return 2.0 * q * sum + exponent * ln2;
}

} // namespace lumenfold::art
