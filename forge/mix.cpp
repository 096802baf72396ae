#include "forge/mix.h"

#include "forge/fourier.h"

#include <ebur128.h>
#include <libopenmpt/libopenmpt_ext.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <memory>
#include <numbers>
#include <stdexcept>

namespace lumenfold::forge {

namespace {

using std::numbers::pi;

constexpr double silence = 1e-12;

double decibels(double power) {
    return 10.0 * std::log10(std::max(power, silence));
}

std::unique_ptr<openmpt::module_ext> openModule(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(path + ": cannot be read");
    std::ostream nowhere(nullptr);
    try {
        return std::make_unique<openmpt::module_ext>(file, nowhere);
    } catch (const openmpt::exception& error) {
        throw std::runtime_error(path + ": " + error.what());
    }
}

bool begins(const std::string& name, const std::vector<std::string>& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](const std::string& prefix) { return name.compare(0, prefix.size(), prefix) == 0; });
}

// Measures both channels, or the one given twice, with libebur128.
class Meter {
  public:
    Meter(const std::vector<float>& left, const std::vector<float>& right, int mode)
        : state(ebur128_init(2, mixRate, mode)) {
        if (state == nullptr)
            throw std::runtime_error("libebur128 has no memory");
        std::array<float, 2 * 4096> block;
        for (std::size_t begin = 0; begin < left.size(); begin += 4096) {
            const std::size_t frames = std::min<std::size_t>(4096, left.size() - begin);
            for (std::size_t i = 0; i < frames; ++i) {
                block[2 * i] = left[begin + i];
                block[2 * i + 1] = right[begin + i];
            }
            ebur128_add_frames_float(state, block.data(), frames);
        }
    }
    ~Meter() { ebur128_destroy(&state); }
    Meter(const Meter&) = delete;
    Meter& operator=(const Meter&) = delete;

    double loudness() const {
        double lufs = 0.0;
        if (ebur128_loudness_global(state, &lufs) != EBUR128_SUCCESS || !std::isfinite(lufs))
            return -70.0;
        return std::max(lufs, -70.0);
    }
    double peak() const {
        double largest = 0.0;
        for (unsigned int channel = 0; channel < 2; ++channel) {
            double value = 0.0;
            ebur128_true_peak(state, channel, &value);
            largest = std::max(largest, value);
        }
        return 2.0 * decibels(largest); // an amplitude
    }

  private:
    ebur128_state* state;
};

// Power at the frequencies of a window of one real signal.
class Spectrum {
  public:
    explicit Spectrum(std::size_t length) : window(length), real(length), imaginary(length), powers(length / 2 + 1) {
        for (std::size_t i = 0; i < length; ++i)
            window[i] = 0.5 - 0.5 * std::cos(2.0 * pi * static_cast<double>(i) / static_cast<double>(length));
    }

    template <class Sample>
    const std::vector<double>& at(Sample&& sample) {
        for (std::size_t i = 0; i < window.size(); ++i) {
            real[i] = window[i] * sample(i);
            imaginary[i] = 0.0;
        }
        art::synth::transform(real, imaginary, false);
        for (std::size_t i = 0; i < powers.size(); ++i)
            powers[i] = real[i] * real[i] + imaginary[i] * imaginary[i];
        return powers;
    }

    double hertz(std::size_t bin) const {
        return static_cast<double>(bin) * mixRate / static_cast<double>(window.size());
    }

  private:
    std::vector<double> window;
    std::vector<double> real;
    std::vector<double> imaginary;
    std::vector<double> powers;
};

// Powers of half the sum and half the difference within the band.
struct MidAndSide {
    double mid = 0.0;
    double side = 0.0;
};

MidAndSide midAndSide(const Mix& mix, double low, double high) {
    constexpr std::size_t length = 8192;
    Spectrum spectrum(length);
    MidAndSide sums;
    const auto add = [&](double& sum, const std::vector<double>& powers) {
        for (std::size_t bin = 1; bin < powers.size(); ++bin)
            if (spectrum.hertz(bin) >= low && spectrum.hertz(bin) < high)
                sum += powers[bin];
    };
    for (std::size_t begin = 0; begin + length <= mix.left.size(); begin += length / 2) {
        add(sums.mid, spectrum.at([&](std::size_t i) { return 0.5 * (mix.left[begin + i] + mix.right[begin + i]); }));
        add(sums.side, spectrum.at([&](std::size_t i) { return 0.5 * (mix.left[begin + i] - mix.right[begin + i]); }));
    }
    return sums;
}

double mel(double hertz) {
    return 2595.0 * std::log10(1.0 + hertz / 700.0);
}

} // namespace

Mix excerpt(const Mix& mix, double from, double to) {
    const auto index = [&](double seconds) {
        const double frame = std::clamp(seconds * mixRate, 0.0, static_cast<double>(mix.left.size()));
        return static_cast<std::ptrdiff_t>(frame);
    };
    const std::ptrdiff_t begin = index(from);
    const std::ptrdiff_t end = std::max(begin, index(to));
    return {{mix.left.begin() + begin, mix.left.begin() + end}, {mix.right.begin() + begin, mix.right.begin() + end}};
}

std::vector<std::string> instrumentNames(const std::string& path) {
    return openModule(path)->get_instrument_names();
}

Mix playModule(const std::string& path, const std::vector<std::string>& instrumentPrefixes) {
    const auto module = openModule(path);
    if (!instrumentPrefixes.empty()) {
        auto* const desk = static_cast<openmpt::ext::interactive*>(module->get_interface(openmpt::ext::interactive_id));
        const std::vector<std::string> names = module->get_instrument_names();
        for (std::size_t i = 0; i < names.size(); ++i)
            desk->set_instrument_mute_status(static_cast<std::int32_t>(i), !begins(names[i], instrumentPrefixes));
    }
    Mix mix;
    const auto total = static_cast<std::size_t>(module->get_duration_seconds() * mixRate);
    mix.left.resize(total);
    mix.right.resize(total);
    std::size_t done = 0;
    while (done < total) {
        const std::size_t frames = module->read(mixRate, std::min<std::size_t>(4096, total - done),
                                                mix.left.data() + done, mix.right.data() + done);
        if (frames == 0)
            break;
        done += frames;
    }
    mix.left.resize(done);
    mix.right.resize(done);
    return mix;
}

double loudness(const Mix& mix) {
    return Meter(mix.left, mix.right, EBUR128_MODE_I).loudness();
}

double truePeak(const Mix& mix) {
    return Meter(mix.left, mix.right, EBUR128_MODE_TRUE_PEAK).peak();
}

double correlation(const Mix& mix) {
    double both = 0.0;
    double left = 0.0;
    double right = 0.0;
    for (std::size_t i = 0; i < mix.left.size(); ++i) {
        both += static_cast<double>(mix.left[i]) * mix.right[i];
        left += static_cast<double>(mix.left[i]) * mix.left[i];
        right += static_cast<double>(mix.right[i]) * mix.right[i];
    }
    const double product = std::sqrt(left * right);
    return product > silence ? both / product : 1.0;
}

double monoLoss(const Mix& mix) {
    std::vector<float> sum(mix.left.size());
    for (std::size_t i = 0; i < sum.size(); ++i)
        sum[i] = 0.5F * (mix.left[i] + mix.right[i]);
    return loudness(mix) - Meter(sum, sum, EBUR128_MODE_I).loudness();
}

double sideToMid(const Mix& mix, double lowHertz, double highHertz) {
    const MidAndSide sums = midAndSide(mix, lowHertz, highHertz);
    return decibels(sums.side) - decibels(sums.mid);
}

double bandLevel(const Mix& mix, double lowHertz, double highHertz) {
    const MidAndSide band = midAndSide(mix, lowHertz, highHertz);
    const MidAndSide all = midAndSide(mix, 20.0, 0.5 * mixRate);
    return decibels(band.mid + band.side) - decibels(all.mid + all.side);
}

Flux fluxOf(const Mix& mix) {
    constexpr std::size_t length = 1024;
    constexpr std::size_t hop = 240;
    constexpr std::size_t bands = 40;
    constexpr double lowest = 40.0;
    constexpr double highest = 16000.0;
    constexpr double floorPower = 1e-6 * length * length; // -60 dB
    Spectrum spectrum(length);
    std::vector<std::size_t> bandOf(length / 2 + 1, bands); // bands: none
    for (std::size_t bin = 0; bin < bandOf.size(); ++bin) {
        const double place = (mel(spectrum.hertz(bin)) - mel(lowest)) / (mel(highest) - mel(lowest)) * bands;
        if (place >= 0.0 && place < bands)
            bandOf[bin] = static_cast<std::size_t>(place);
    }
    Flux flux;
    std::array<double, bands> before{};
    bool first = true;
    const std::size_t count = mix.left.size();
    const auto sample = [&](std::size_t i) {
        return i >= length / 2 && i - length / 2 < count ? 0.5 * (mix.left[i - length / 2] + mix.right[i - length / 2])
                                                         : 0.0;
    };
    for (std::size_t begin = 0; begin < count; begin += hop) {
        std::array<double, bands> powers{};
        const std::vector<double>& bins = spectrum.at([&](std::size_t i) { return sample(begin + i); });
        for (std::size_t bin = 0; bin < bins.size(); ++bin)
            if (bandOf[bin] < bands)
                powers[bandOf[bin]] += bins[bin];
        double rise = 0.0;
        for (std::size_t band = 0; band < bands; ++band) {
            const double level = decibels(powers[band] + floorPower);
            if (!first)
                rise += std::max(level - before[band], 0.0);
            before[band] = level;
        }
        flux.steps.push_back(rise / bands);
        first = false;
    }
    return flux;
}

Flux::Rise Flux::largest(double from, double to) const {
    Rise found;
    const auto last = static_cast<std::ptrdiff_t>(steps.size());
    const auto begin = std::clamp<std::ptrdiff_t>(std::llround(from / stepSeconds), 0, last);
    const auto end = std::clamp<std::ptrdiff_t>(std::llround(to / stepSeconds), begin, last);
    for (std::ptrdiff_t step = begin; step < end; ++step)
        if (steps[static_cast<std::size_t>(step)] > found.height)
            found = {steps[static_cast<std::size_t>(step)], static_cast<double>(step) * stepSeconds};
    return found;
}

double accent(const Flux& flux, double seconds) {
    return flux.largest(seconds - 0.012, seconds + 0.030).height;
}

double onsetStrength(const Mix& mix) {
    constexpr std::size_t length = 2048;
    constexpr std::size_t hop = 512;
    constexpr double scale = 3.73;
    Spectrum spectrum(length);
    std::vector<double> before(length / 2 + 1, 0.0);
    double rises = 0.0;
    std::size_t windows = 0;
    for (std::size_t begin = 0; begin + length <= mix.left.size(); begin += hop, ++windows) {
        const std::vector<double>& powers =
            spectrum.at([&](std::size_t i) { return 0.5 * (mix.left[begin + i] + mix.right[begin + i]); });
        double rise = 0.0;
        for (std::size_t bin = 0; bin < powers.size(); ++bin) {
            const double level = std::log1p(std::sqrt(powers[bin]));
            rise += std::max(level - before[bin], 0.0);
            before[bin] = level;
        }
        rises += rise / static_cast<double>(powers.size());
    }
    return windows == 0 ? 0.0 : scale * rises / static_cast<double>(windows);
}

} // namespace lumenfold::forge
