#include "core/vector_target.h"

#include "core/dispatch.h"

#include <cstddef>
#include <stdexcept>

namespace lumenfold {

namespace {

const std::int64_t targetOfEntry[targetEntries] = {HWY_AVX3, HWY_AVX2, HWY_SSE4, HWY_STATIC_TARGET};

bool available(std::size_t entry) {
    if (entry == lastEntry)
        return true;
    if ((targetOfEntry[entry] & HWY_TARGETS & ~HWY_STATIC_TARGET) == 0)
        return false;
#if HWY_ARCH_X86
    __builtin_cpu_init();
    const bool avx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
                      __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("fma");
    if (entry == avx3Entry)
        return avx2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") &&
               __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw");
    return entry == avx2Entry ? avx2 : __builtin_cpu_supports("sse4.2");
#else
    return false;
#endif
}

std::size_t bestEntry() {
    std::size_t entry = 0;
    while (!available(entry))
        ++entry;
    return entry;
}

} // namespace

std::size_t targetEntry = bestEntry();

std::vector<std::string> vectorTargets() {
    std::vector<std::string> names;
    for (std::size_t entry = 0; entry < targetEntries; ++entry)
        if (available(entry))
            names.emplace_back(hwy::TargetName(targetOfEntry[entry]));
    return names;
}

void useVectorTarget(const std::string& name) {
    for (std::size_t entry = 0; entry < targetEntries; ++entry)
        if (available(entry) && name == hwy::TargetName(targetOfEntry[entry])) {
            targetEntry = entry;
            return;
        }
    throw std::invalid_argument(name + ": this processor has no such vector instructions");
}

std::string vectorTarget() {
    return hwy::TargetName(targetOfEntry[targetEntry]);
}

} // namespace lumenfold
