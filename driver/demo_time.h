#pragma once

#include <cstdint>

namespace lumenfold {

// Turns counter readings into demo time, which grows by 15.68 a second.
class DemoTime {
  public:
    // frequency: counts of the counter a second, more than 0.
    explicit DemoTime(std::int64_t frequency);

    // The demo time at a counter reading: timeUnits x 0.016, rounded to a float.
    float at(std::int64_t counter) const;

    // 980 a second, in steps of one; wraps to 0 after about 50 days.
    std::uint32_t timeUnits(std::int64_t counter) const;

  private:
    float invFrequency; // seconds a count, computed in extended precision and stored as a float
};

} // namespace lumenfold
