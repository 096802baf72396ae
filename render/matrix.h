#pragma once

#include "assets/mesh.h" // Vector3, Matrix

namespace lumenfold {

// Matrices are 4 x 4, row-major, single precision, used with row vectors: p' = p x m, row 3 is the translation.

// output = R(a, b, c) x m, R turning first about x by a, then y by b, then z by c (degrees). output may be m.
Matrix& composeRotation(Matrix& output, const Matrix& m, float a, float b, float c);

// output = a x b, all 16 elements. output may be a or b.
void matrixMultiply(const Matrix& a, const Matrix& b, Matrix& output);

Matrix& matrixIdentity(Matrix& matrix);

float vectorLength(const Vector3& vector);

// Divides by the length in place; a zero vector becomes NaN.
void vectorNormalize(Vector3& vector);

} // namespace lumenfold
