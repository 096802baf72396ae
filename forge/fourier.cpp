#include "forge/fourier.h"

#include <cstddef>
#include <utility>

#include "core/trig.h"

// Cooley and Tukey's decimation in time: bit reversal, then butterflies of doubling span.

namespace lumenfold::art::synth {
namespace {

constexpr double turn = 6.283185307179586;

void reverseBits(std::vector<double>& real, std::vector<double>& imaginary) {
    const std::size_t length = real.size();
    for (std::size_t i = 1, j = 0; i < length; ++i) {
        std::size_t bit = length >> 1;
        for (; (j & bit) != 0; bit >>= 1) {
            j ^= bit;
        }
        j ^= bit;
        if (i < j) {
            std::swap(real[i], real[j]);
            std::swap(imaginary[i], imaginary[j]);
        }
    }
}

} // namespace

void transform(std::vector<double>& real, std::vector<double>& imaginary, bool inverse) {
    const std::size_t length = real.size();
    reverseBits(real, imaginary);
    std::vector<double> cosines(length / 2);
    std::vector<double> sines(length / 2);
    for (std::size_t i = 0; i < length / 2; ++i) {
        const double angle = turn * static_cast<double>(i) / static_cast<double>(length);
        cosines[i] = trig::cos(angle);
        sines[i] = inverse ? trig::sin(angle) : -trig::sin(angle);
    }
    for (std::size_t span = 1; span < length; span *= 2) {
        const std::size_t step = length / (2 * span);
        for (std::size_t start = 0; start < length; start += 2 * span) {
            for (std::size_t k = 0; k < span; ++k) {
                const std::size_t a = start + k;
                const std::size_t b = a + span;
                const double c = cosines[k * step];
                const double s = sines[k * step];
                const double re = real[b] * c - imaginary[b] * s;
                const double im = real[b] * s + imaginary[b] * c;
                real[b] = real[a] - re;
                imaginary[b] = imaginary[a] - im;
                real[a] += re;
                imaginary[a] += im;
            }
        }
    }
}

} // namespace lumenfold::art::synth
