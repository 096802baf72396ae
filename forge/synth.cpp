#include "forge/synth.h"

#include <algorithm>
#include <cmath>

#include "core/trig.h"
#include "forge/fourier.h"

namespace lumenfold::art::synth {
namespace {

constexpr double turn = 6.283185307179586;

double at(std::size_t index) {
    return static_cast<double>(index) / sampleRate;
}

std::size_t powerOfTwoFrom(std::size_t size) {
    std::size_t length = 1;
    while (length < size) {
        length *= 2;
    }
    return length;
}

// Multiplies the spectrum by a real gain of the frequency in hertz. The sound is padded so that nothing wraps.
Samples spectrallyScaled(const Samples& source, const std::function<double(double)>& gain) {
    const std::size_t length = powerOfTwoFrom(source.size() * 2);
    std::vector<double> real(length, 0.0);
    std::vector<double> imaginary(length, 0.0);
    std::copy(source.begin(), source.end(), real.begin());
    transform(real, imaginary, false);
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t bin = std::min(i, length - i);
        const double factor =
            gain(static_cast<double>(bin) * sampleRate / static_cast<double>(length)) / static_cast<double>(length);
        real[i] *= factor;
        imaginary[i] *= factor;
    }
    transform(real, imaginary, true);
    real.resize(source.size());
    return real;
}

// Applies a curve at four times the rate and keeps what lies below half of the old one.
template <class Curve>
void shapeFinely(Samples& target, const Curve& curve) {
    constexpr std::size_t factor = 4;
    const std::size_t length = powerOfTwoFrom(target.size());
    const std::size_t wide = factor * length;
    std::vector<double> real(target);
    std::vector<double> imaginary(length, 0.0);
    real.resize(length, 0.0);
    transform(real, imaginary, false);
    const auto resized = [](const std::vector<double>& bins, std::size_t from, std::size_t to) {
        std::vector<double> result(to, 0.0);
        for (std::size_t i = 0; i < std::min(from, to) / 2; ++i) {
            result[i] = bins[i];
            if (i > 0)
                result[to - i] = bins[from - i];
        }
        return result;
    };
    std::vector<double> wideReal = resized(real, length, wide);
    std::vector<double> wideImaginary = resized(imaginary, length, wide);
    transform(wideReal, wideImaginary, true);
    for (double& value : wideReal)
        value = curve(value / static_cast<double>(length));
    std::fill(wideImaginary.begin(), wideImaginary.end(), 0.0);
    transform(wideReal, wideImaginary, false);
    real = resized(wideReal, wide, length);
    imaginary = resized(wideImaginary, wide, length);
    transform(real, imaginary, true);
    for (std::size_t i = 0; i < target.size(); ++i)
        target[i] = real[i] / static_cast<double>(wide);
}

} // namespace

double saturate(double x) {
    const double e = exponential(-2.0 * std::fabs(x));
    const double magnitude = (1.0 - e) / (1.0 + e);
    return x < 0.0 ? -magnitude : magnitude;
}

double cycleSine(double cycles) {
    return trig::sin(turn * (cycles - std::floor(cycles)));
}

double noise(std::uint32_t seed, std::uint32_t index) {
    std::uint32_t h = index * 0x9E3779B1u + seed * 0x85EBCA6Bu + 0x27D4EB2Fu;
    h ^= h >> 15;
    h *= 0x2C1B3C6Du;
    h ^= h >> 12;
    h *= 0x297A2D39u;
    h ^= h >> 15;
    return static_cast<double>(h) / 2147483647.5 - 1.0;
}

std::size_t sampleCount(double seconds) {
    return static_cast<std::size_t>(seconds * sampleRate + 0.5);
}

Samples render(double seconds, const std::function<double(double)>& sample) {
    Samples result(sampleCount(seconds));
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = sample(at(i));
    }
    return result;
}

Samples whiteNoise(double seconds, std::uint32_t seed) {
    Samples result(sampleCount(seconds));
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = noise(seed, static_cast<std::uint32_t>(i));
    }
    return result;
}

Samples sweptSine(double seconds, const std::function<double(double)>& hertz) {
    double phase = 0.0;
    return render(seconds, [&](double t) {
        phase += hertz(t) / sampleRate;
        return cycleSine(phase);
    });
}

void add(Samples& target, const Samples& source, double gain, double atSeconds) {
    const std::size_t offset = sampleCount(atSeconds);
    target.resize(std::max(target.size(), offset + source.size()), 0.0);
    for (std::size_t i = 0; i < source.size(); ++i) {
        target[offset + i] += source[i] * gain;
    }
}

void multiply(Samples& target, const std::function<double(double)>& gainAtSeconds) {
    for (std::size_t i = 0; i < target.size(); ++i) {
        target[i] *= gainAtSeconds(at(i));
    }
}

void shapeWith(Samples& target, double drive) {
    shapeFinely(target, [&](double value) { return saturate(value * drive); });
}

void foldWith(Samples& target, double drive) {
    shapeFinely(target, [&](double value) { return cycleSine(value * drive * 0.25); });
}

void fadeEnds(Samples& target, double inSeconds, double outSeconds) {
    const double end = at(target.size());
    multiply(target, [&](double t) {
        const double in = inSeconds > 0.0 ? std::min(1.0, t / inSeconds) : 1.0;
        const double out = outSeconds > 0.0 ? std::min(1.0, (end - t) / outSeconds) : 1.0;
        return in * out;
    });
}

void normalise(Samples& target, double peak) {
    double mean = 0.0;
    for (const double value : target) {
        mean += value / static_cast<double>(target.size());
    }
    double largest = 1e-9;
    for (double& value : target) {
        value -= mean;
        largest = std::max(largest, std::fabs(value));
    }
    for (double& value : target) {
        value *= peak / largest;
    }
}

Samples filtered(const Samples& source, double lowCut, double highCut, int order) {
    return spectrallyScaled(source, [&](double hertz) {
        const double f = hertz + 1e-6;
        double gain = 1.0;
        const auto slope = [&](double ratio) {
            double product = 1.0;
            for (int i = 0; i < 2 * order; ++i) {
                product *= ratio;
            }
            return 1.0 / std::sqrt(1.0 + product);
        };
        if (lowCut > 0.0) {
            gain *= slope(lowCut / f);
        }
        if (highCut > 0.0) {
            gain *= slope(f / highCut);
        }
        return gain;
    });
}

Samples withRoom(const Samples& source, double roomSeconds, double wet, double brightness, std::uint32_t seed) {
    Samples room = whiteNoise(roomSeconds, seed);
    // 60 dB down at the end, with a short build-up so that the direct sound stays clear
    multiply(room, [&](double t) { return exponential(-6.9 * t / roomSeconds) * std::min(1.0, t / 0.012); });
    room = filtered(room, 180.0, brightness, 1);
    double energy = 0.0;
    for (const double value : room) {
        energy += value * value;
    }
    const std::size_t size = source.size() + room.size();
    const std::size_t length = powerOfTwoFrom(size);
    std::vector<double> aReal(length, 0.0);
    std::vector<double> aImaginary(length, 0.0);
    std::copy(source.begin(), source.end(), aReal.begin());
    std::copy(room.begin(), room.end(), aImaginary.begin());
    // Both real sounds ride in one complex transform; their product's spectrum follows from its symmetry.
    transform(aReal, aImaginary, false);
    std::vector<double> real(length);
    std::vector<double> imaginary(length);
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t j = (length - i) % length;
        const double xr = (aReal[i] + aReal[j]) * 0.5;
        const double xi = (aImaginary[i] - aImaginary[j]) * 0.5;
        const double yr = (aImaginary[i] + aImaginary[j]) * 0.5;
        const double yi = (aReal[j] - aReal[i]) * 0.5;
        real[i] = xr * yr - xi * yi;
        imaginary[i] = xr * yi + xi * yr;
    }
    transform(real, imaginary, true);
    const double gain = wet / (std::sqrt(energy) * static_cast<double>(length));
    Samples result(size, 0.0);
    for (std::size_t i = 0; i < size; ++i) {
        result[i] = real[i] * gain + (i < source.size() ? source[i] : 0.0);
    }
    return result;
}

Samples resonated(const Samples& source, const std::vector<double>& centres, double width, double gain) {
    return spectrallyScaled(source, [&](double hertz) {
        double sum = 1.0;
        for (const double centre : centres) {
            const double d = (hertz - centre) / width;
            sum += gain * exponential(-d * d);
        }
        return sum;
    });
}

LoopSpectrum::LoopSpectrum(std::size_t samples) : length(samples), real(samples, 0.0), imaginary(samples, 0.0) {}

void LoopSpectrum::partial(double cycles, double amplitude, double phaseCycles) {
    const auto bin = static_cast<std::size_t>(cycles + 0.5);
    if (bin > 0 && bin < length / 2) {
        real[bin] += amplitude * cycleSine(phaseCycles);
        imaginary[bin] -= amplitude * cycleSine(phaseCycles + 0.25);
    }
}

void LoopSpectrum::cloud(double centre, double width, double amplitude, std::uint32_t seed) {
    const double reach = 3.5 * width;
    for (double bin = std::floor(centre - reach); bin <= centre + reach; bin += 1.0) {
        const double d = (bin - centre) / width;
        if (bin >= 1.0) {
            partial(bin, amplitude * exponential(-d * d) / std::sqrt(width),
                    noise(seed, static_cast<std::uint32_t>(bin)) * 0.5 + 0.5);
        }
    }
}

Samples LoopSpectrum::render() const {
    std::vector<double> re = real;
    std::vector<double> im = imaginary;
    transform(re, im, true);
    return re;
}

} // namespace lumenfold::art::synth
