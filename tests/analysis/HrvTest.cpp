#include "analysis/HRV.h"

#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "support/SessionTest.h"

#include <cmath>
#include <numbers>

namespace pulselark {
namespace {

using Hrv = SessionTest;

// A cosine of amplitude 0.05 s on its bin has the power (256 * 0.05 / 2)^2 = 40.96.
TEST_F(Hrv, CosineFallsIntoItsBand) {
    for (const int bin : {9, 10, 26, 37, 38, 65, 102, 103}) {
        const double lf = bin >= 10 && bin <= 37 ? 40.96 : 0; // 0.04 Hz up to below 0.15 Hz
        const double hf = bin >= 38 && bin <= 102 ? 40.96 : 0;
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

} // namespace
} // namespace pulselark
