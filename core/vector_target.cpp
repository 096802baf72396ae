#include "core/vector_target.h"

#include <cstdint>
#include <hwy/highway.h>
#include <stdexcept>

namespace lumenfold {

namespace {

std::int64_t available() {
    static const std::int64_t targets = (HWY_SUPPORTED_TARGETS & HWY_TARGETS) | HWY_STATIC_TARGET;
    return targets;
}

std::int64_t& chosen() {
    static std::int64_t target = available() & -available(); // better ones have lower bits
    return target;
}

} // namespace

std::vector<std::string> vectorTargets() {
    std::vector<std::string> names;
    for (std::int64_t targets = available(); targets != 0; targets &= targets - 1)
        names.emplace_back(hwy::TargetName(targets & -targets));
    return names;
}

std::string vectorTarget() {
    return hwy::TargetName(chosen());
}

void useVectorTarget(const std::string& name) {
    for (std::int64_t targets = available(); targets != 0; targets &= targets - 1) {
        const std::int64_t target = targets & -targets;
        if (name != hwy::TargetName(target))
            continue;
        chosen() = target;
#if (HWY_TARGETS & (HWY_TARGETS - 1)) != 0
        hwy::GetChosenTarget().Update(target);
#endif
        return;
    }
    throw std::invalid_argument(name + ": this processor has no such vector instructions");
}

} // namespace lumenfold
