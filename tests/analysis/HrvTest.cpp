#include "analysis/HRV.h"

#include "session/AnalysisBuffers.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <cmath>
#include <numbers>

namespace pulselark {
namespace {

using Hrv = SessionTest;

// A cosine of amplitude 0.05 s on its bin has the power (256 * 0.05 / 2)^2 = 40.96.
TEST_F(Hrv, CosineFallsIntoItsBand) {
    const struct {
        int Bin;
        double Lf, Hf;
    } cases[] = {{9, 0, 0},      {10, 40.96, 0},  {26, 40.96, 0},  {37, 40.96, 0},
                 {38, 0, 40.96}, {65, 0, 40.96}, {102, 0, 40.96}, {103, 0, 0}};
    for (const auto& [bin, lf, hf] : cases) {
        for (Long s = 1; s <= 1000; ++s)
            IbiB[s] = static_cast<float>(0.8 + 0.05 * std::cos(2 * std::numbers::pi * (bin - 1) * s / 256));
        AnalysisSecond = 700;
        CalcHrvB();
        EXPECT_NEAR(HrvLfB, lf, 1e-3) << bin;
        EXPECT_NEAR(HrvHfB, hf, 1e-3) << bin;
        EXPECT_NEAR(HrvPowerB[bin], 40.96, 1e-3);
        EXPECT_NEAR(HrvPowerB[1], 204.8 * 204.8, 0.5); // the mean
    }
    EXPECT_EQ(HrvLfA + HrvHfA, 0);
    EXPECT_EQ(HrvPowerA, (Series<float, HrvBins>{}));
}

TEST_F(Hrv, SecondsBeforeTheFirstCountAsNothing) {
    AnalysisSecond = 1; // one impulse of 1 s: flat
    CalcHrvA();
    for (int i = 1; i <= HrvBins; ++i)
        EXPECT_NEAR(HrvPowerA[i], 1, 1e-5);
    EXPECT_NEAR(HrvLfA, 28, 1e-4); // bins 10 to 37
    EXPECT_NEAR(HrvHfA, 65, 1e-4); // bins 38 to 102
    AnalysisSecond = 256;          // constant: all in bin 1
    CalcHrvA();
    EXPECT_NEAR(HrvPowerA[1], 65536, 1e-2);
    EXPECT_NEAR(HrvLfA + HrvHfA, 0, 1e-6);
    AnalysisSecond = 0;
    CalcHrvA();
    EXPECT_EQ(HrvPowerA[1], 0);
}

TEST_F(Hrv, OnlyTheLast256SecondsCount) {
    MakeSession(600);
    AnalysisSecond = 500;
    CalcHrvA();
    const auto power = HrvPowerA;
    IbiA[244] = IbiA[501] = 50;
    CalcHrvA();
    EXPECT_EQ(HrvPowerA, power);
    IbiA[245] = 50;
    CalcHrvA();
    EXPECT_NE(HrvPowerA, power);
}

} // namespace
} // namespace pulselark
