#pragma once

#include "forge/maths.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

// The building blocks of the tunes' sounds. Everything is deterministic: noise comes from an integer hash, and the
// transcendental functions below use plain arithmetic alone, so that a rebuilt tune has the same bits everywhere.

namespace lumenfold::art::synth {

using Samples = std::vector<double>; // -1 to 1 is full scale; mono at sampleRate unless told otherwise

// Samples a second that an XM player reads at C-4 with a relative note of 24.
constexpr double sampleRate = 33452.0;
constexpr double middleC = 261.6256; // C-4 in hertz

double saturate(double x); // hyperbolic tangent
// Sine of a phase counted in cycles.
double cycleSine(double cycles);

// White noise, -1 to 1; the same value for the same seed and index.
double noise(std::uint32_t seed, std::uint32_t index);

std::size_t sampleCount(double seconds);
// Fills seconds of sound from a function of the time in seconds.
Samples render(double seconds, const std::function<double(double)>& sample);
Samples whiteNoise(double seconds, std::uint32_t seed);
// A sine whose frequency follows a function of time; the phase runs on smoothly.
Samples sweptSine(double seconds, const std::function<double(double)>& hertz);

void add(Samples& target, const Samples& source, double gain = 1.0, double atSeconds = 0.0); // grows the target
void multiply(Samples& target, const std::function<double(double)>& gainAtSeconds);
// Both curves run at four times the rate, so that what they add above half of it does not fold back. A sound of a
// power-of-two length counts as a loop.
void shapeWith(Samples& target, double drive); // saturates drive times the sound
void foldWith(Samples& target, double drive);  // folds back what exceeds full scale, with a sine
void fadeEnds(Samples& target, double inSeconds, double outSeconds);
void normalise(Samples& target, double peak = 0.97);

// Zero-phase filter with soft slopes of 6 dB an octave for each order. 0 leaves a side open.
Samples filtered(const Samples& source, double lowCut, double highCut, int order = 2);
// Adds a decaying diffuse room after the sound; the result is longer by the room's length. Brightness is where the
// room's spectrum begins to fall, in hertz.
Samples withRoom(const Samples& source, double roomSeconds, double wet, double brightness, std::uint32_t seed);
// Raises the spectrum by up to the gain in a bell around each centre, all in hertz: a vowel.
Samples resonated(const Samples& source, const std::vector<double>& centres, double width, double gain);

// A seamless loop of a power-of-two length, given by its spectrum: amplitude and phase of whole cycles in the loop.
class LoopSpectrum {
  public:
    explicit LoopSpectrum(std::size_t samples);                        // a power of two
    void partial(double cycles, double amplitude, double phaseCycles); // rounded to whole cycles
    // A partial as a cloud of random phases, width in cycles.
    void cloud(double centre, double width, double amplitude, std::uint32_t seed);
    Samples render() const;
    double cyclesOf(double hertz) const { return hertz / sampleRate * static_cast<double>(length); }

  private:
    std::size_t length;
    std::vector<double> real;
    std::vector<double> imaginary;
};

} // namespace lumenfold::art::synth
