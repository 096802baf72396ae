#pragma once

#include "core/vector_target.h"

#include <hwy/highway.h>

// From a function that was compiled for every target to the one for the target in use: in the part of a source that is
// compiled once, LUMENFOLD_TARGETS(name) makes the table of namespace lumenfold's N_...::name, and
// LUMENFOLD_TARGET(name)(arguments...) calls its entry. Highway's own macros would need its library, which measures
// clocks at every program's start; its headers are enough.

namespace lumenfold {

// The order of the tables, best first. What is compiled without vector instructions, or is the only target, comes last.
enum : std::size_t { avx3Entry, avx2Entry, sse4Entry, lastEntry, targetEntries };

extern std::size_t targetEntry; // in use

} // namespace lumenfold

#define LUMENFOLD_TARGETS(name)                                                                                        \
    constexpr decltype(&HWY_STATIC_DISPATCH(name)) name##OnTarget[targetEntries] = {                                   \
        HWY_CHOOSE_AVX3(name), HWY_CHOOSE_AVX2(name), HWY_CHOOSE_SSE4(name), &HWY_STATIC_DISPATCH(name)}
#define LUMENFOLD_TARGET(name) (name##OnTarget[targetEntry])
