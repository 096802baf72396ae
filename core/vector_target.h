#pragma once

#include <string>
#include <vector>

// The loops over pixels are written once, with Highway, and compiled for several instruction sets ("targets"). All of
// them give the same bits; the best one that the processor has is used.

namespace lumenfold {

// Names of the targets that this processor can run, the best one first ("AVX2"); the last one needs no vector
// instructions ("EMU128").
std::vector<std::string> vectorTargets();

// The target in use.
std::string vectorTarget();

// Uses another one, for tests and comparisons. Throws std::invalid_argument for a name that vectorTargets() has not.
void useVectorTarget(const std::string& name);

} // namespace lumenfold
