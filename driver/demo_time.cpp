#include "driver/demo_time.h"

#include "driver/extended.h"

#include <cassert>

namespace lumenfold {

DemoTime::DemoTime(std::int64_t frequency)
    : invFrequency(Extended::reciprocal(static_cast<std::uint64_t>(frequency)).toFloat()) {
    assert(frequency > 0);
}

std::uint32_t DemoTime::timeUnits(std::int64_t counter) const {
    const Extended seconds =
        Extended::fromInteger(static_cast<std::uint64_t>(counter)) * Extended::fromFloat(invFrequency);
    return (seconds * Extended::fromInteger(980)).lowWord();
}

float DemoTime::at(std::int64_t counter) const {
    return static_cast<float>(timeUnits(counter) * 0.016);
}

} // namespace lumenfold
