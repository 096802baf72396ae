#pragma once

#include "assets/mesh.h"

namespace lumenfold {

// The point in the matrix's space: (x, y, z) x m with row 3 added last; column 3 is never read.
inline Vector3 transformPoint(float x, float y, float z, const Matrix& m) {
    return {x * m[0] + y * m[4] + z * m[8] + m[12], x * m[1] + y * m[5] + z * m[9] + m[13],
            x * m[2] + y * m[6] + z * m[10] + m[14]};
}

} // namespace lumenfold
