#pragma once

#include <cstdint>

namespace lumenfold {

// What `count` additions of step to start leave, each sum rounded to single precision, in far fewer of them: the sums
// that keep sign and exponent are jumped over. For the edges of triangles that begin far above the screen.
float addRepeatedly(float start, float step, std::int64_t count);

} // namespace lumenfold
