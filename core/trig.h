#pragma once

// Sine, cosine and arc tangent with the same bits on every processor, compiler and C library, so that the same
// commit draws the same pictures everywhere. Angles in radians. Renderer and scenes use these and never the C
// library's. At most 1 ulp from the C library for |angle| up to 1e6. A float argument widens to double; where a
// single-precision value is asked for, the caller rounds the result.

namespace lumenfold::trig {

double sin(double angle);
double cos(double angle);

// The angle of the point (x, y) from the x axis, -pi to pi; both zero gives 0, as in the C library.
double atan2(double y, double x);

} // namespace lumenfold::trig
