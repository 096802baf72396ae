#include "render/matrix.h"

#include "render/transform.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumenfold {
namespace {

Matrix rotation(float a, float b, float c) {
    Matrix identity;
    Matrix matrix;
    return composeRotation(matrix, matrixIdentity(identity), a, b, c);
}

void expectNear(const Vector3& actual, const Vector3& expected, const char* what) {
    for (std::size_t k = 0; k < 3; ++k)
        EXPECT_NEAR(actual[k], expected[k], 3e-6) << what << ", " << k;
}

TEST(Matrix, TurnsAboutXThenYThenZ) {
    const struct {
        const char* what;
        Vector3 angles;
        Vector3 y; // where (0, 1, 0) goes
        Vector3 z; // where (0, 0, 1) goes
    } cases[] = {
        {"none", {0, 0, 0}, {0, 1, 0}, {0, 0, 1}},        {"x", {90, 0, 0}, {0, 0, 1}, {0, -1, 0}},
        {"y", {0, 90, 0}, {0, 1, 0}, {1, 0, 0}},          {"z", {0, 0, 90}, {-1, 0, 0}, {0, 0, 1}},
        {"x then y", {90, 90, 0}, {1, 0, 0}, {0, -1, 0}}, {"x then z", {90, 0, 90}, {0, 0, 1}, {1, 0, 0}},
        {"y then z", {0, 90, 90}, {-1, 0, 0}, {0, 1, 0}},
    };
    for (const auto& c : cases) {
        const Matrix m = rotation(c.angles[0], c.angles[1], c.angles[2]);
        expectNear(transformPoint(0, 1, 0, m), c.y, c.what);
        expectNear(transformPoint(0, 0, 1, m), c.z, c.what);
    }
}

TEST(Matrix, DegreesBecomeRadiansByTheirFactor) {
    // The factor is not the nearest to pi / 180: ten thousand turns bring its error out.
    EXPECT_NEAR(rotation(0, 0, 3600000)[1], std::sin(3600000.0F * 0.017453277F), 1e-6);
}

TEST(Matrix, ProductsMayGoIntoTheirOperands) {
    const Matrix a = rotation(10, 20, 30);
    Matrix b = rotation(40, 50, 60);
    b[12] = 1;
    b[13] = 2;
    b[14] = 3;
    Matrix expected;
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            float sum = 0;
            for (std::size_t k = 0; k < 4; ++k)
                sum += a[4 * i + k] * b[4 * k + j];
            expected[4 * i + j] = sum;
        }
    }
    Matrix left = a;
    Matrix right = b;
    matrixMultiply(left, b, left);
    matrixMultiply(a, right, right);
    EXPECT_EQ(left, expected);
    EXPECT_EQ(right, expected);
    Matrix composed = b;
    EXPECT_EQ(&composeRotation(composed, composed, 10, 20, 30), &composed);
    EXPECT_EQ(composed, expected);
}

TEST(Matrix, Vectors) {
    Vector3 vector = {3, -4, 12};
    EXPECT_EQ(vectorLength(vector), 13.0F);
    vectorNormalize(vector);
    EXPECT_EQ(vector, (Vector3{3.0F / 13, -4.0F / 13, 12.0F / 13}));
}

} // namespace
} // namespace lumenfold
