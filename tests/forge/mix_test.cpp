#include "forge/mix.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumenfold::forge {
namespace {

constexpr double pi = 3.14159265358979323846;

// A tone of one frequency, its channels apart by a phase.
Mix tone(double hertz, double seconds, double amplitude, double phase = 0.0) {
    Mix mix;
    for (int i = 0; i < static_cast<int>(seconds * mixRate); ++i) {
        const double angle = 2.0 * pi * hertz * i / mixRate;
        mix.left.push_back(static_cast<float>(amplitude * std::sin(angle)));
        mix.right.push_back(static_cast<float>(amplitude * std::sin(angle + phase)));
    }
    return mix;
}

TEST(Mix, LoudnessAndPeakOfATone) {
    // a tone of 997 Hz at full scale in both channels is 0 LUFS by the standard's calibration
    const Mix full = tone(997.0, 2.0, 1.0);
    EXPECT_NEAR(loudness(full), 0.0, 0.1);
    EXPECT_NEAR(truePeak(full), 0.0, 0.1);
    EXPECT_NEAR(loudness(tone(997.0, 2.0, 0.1)), -20.0, 0.1);
    EXPECT_EQ(loudness(tone(997.0, 2.0, 0.0)), -70.0);
}

TEST(Mix, StereoFigures) {
    const Mix mono = tone(300.0, 2.0, 0.5);
    EXPECT_NEAR(correlation(mono), 1.0, 1e-6);
    EXPECT_NEAR(monoLoss(mono), 0.0, 0.01);
    EXPECT_LT(sideToMid(mono, 150.0, 500.0), -60.0);
    const Mix wide = tone(300.0, 2.0, 0.5, pi / 2.0); // mid and side carry the same energy
    EXPECT_NEAR(correlation(wide), 0.0, 0.01);
    EXPECT_NEAR(monoLoss(wide), 3.01, 0.05);
    EXPECT_NEAR(sideToMid(wide, 150.0, 500.0), 0.0, 0.05);
    EXPECT_NEAR(bandLevel(wide, 150.0, 500.0), 0.0, 0.05);
    EXPECT_LT(bandLevel(wide, 1000.0, 4000.0), -40.0);
}

TEST(Mix, AStrikeIsFoundWhereItIs) {
    Mix mix = tone(200.0, 1.0, 0.01);
    const Mix strike = tone(3000.0, 0.2, 0.5);
    for (std::size_t i = 0; i < strike.left.size(); ++i) {
        mix.left[i + mixRate / 2] += strike.left[i];
        mix.right[i + mixRate / 2] += strike.right[i];
    }
    const Flux flux = fluxOf(mix);
    EXPECT_NEAR(flux.largest(0.1, 0.9).seconds, 0.5, 0.010);
    EXPECT_GT(accent(flux, 0.5), 5.0 * accent(flux, 0.4));
    EXPECT_GT(onsetStrength(excerpt(mix, 0.45, 0.55)), onsetStrength(excerpt(mix, 0.1, 0.2)));
}

} // namespace
} // namespace lumenfold::forge
