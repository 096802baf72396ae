#include "render/matrix.h"

#include "core/trig.h"

#include <cmath>

namespace lumenfold {

namespace {

// Radians per degree. Not the nearest float: the scenes' angles were set by eye with this one.
constexpr float radiansPerDegree = 0.017453277F; // bits 0x3C8EFA2D

struct SineCosine {
    float sine;
    float cosine;
};

SineCosine sineCosine(float degrees) {
    const float angle = degrees * radiansPerDegree;
    return {static_cast<float>(trig::sin(angle)), static_cast<float>(trig::cos(angle))};
}

Matrix rotation(float a, float b, float c) {
    const auto [sa, ca] = sineCosine(a);
    const auto [sb, cb] = sineCosine(b);
    const auto [sc, cc] = sineCosine(c);
    return {cc * cb,
            sc * cb,
            -sb,
            0.0F,
            sb * sa * cc - sc * ca,
            sc * sb * sa + cc * ca,
            sa * cb,
            0.0F,
            sb * cc * ca + sc * sa,
            sc * sb * ca - sa * cc,
            cb * ca,
            0.0F,
            0.0F,
            0.0F,
            0.0F,
            1.0F};
}

} // namespace

Matrix& composeRotation(Matrix& output, const Matrix& m, float a, float b, float c) {
    matrixMultiply(rotation(a, b, c), m, output);
    return output;
}

void matrixMultiply(const Matrix& a, const Matrix& b, Matrix& output) {
    Matrix product;
    for (std::size_t row = 0; row < 16; row += 4) {
        for (std::size_t column = 0; column < 4; ++column) {
            product[row + column] = a[row] * b[column] + a[row + 1] * b[4 + column] + a[row + 2] * b[8 + column] +
                                    a[row + 3] * b[12 + column];
        }
    }
    output = product;
}

Matrix& matrixIdentity(Matrix& matrix) {
    matrix = {1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F};
    return matrix;
}

float vectorLength(const Vector3& vector) {
    return std::sqrt(vector[0] * vector[0] + vector[1] * vector[1] + vector[2] * vector[2]);
}

void vectorNormalize(Vector3& vector) {
    const float length = vectorLength(vector);
    for (float& component : vector)
        component /= length;
}

} // namespace lumenfold
