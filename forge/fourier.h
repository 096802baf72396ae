#pragma once

#include <vector>

namespace lumenfold::art::synth {

// Discrete Fourier transform in place, radix 2. Both parts have the same power-of-two length. The inverse is not
// divided by the length.
void transform(std::vector<double>& real, std::vector<double>& imaginary, bool inverse);

} // namespace lumenfold::art::synth
