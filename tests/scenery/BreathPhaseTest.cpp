#include "scenery/BreathPhase.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace pulselark {
namespace {

constexpr double Near = 1e-9;

// Eight seconds a breath: one in, seven out.
BreathPhase OneToSeven() {
    BreathPhase breath;
    breath.SetBalance(7, 0);
    breath.Start(100);
    return breath;
}

TEST(BreathPhase, FillsOnTheInBreathAndEmptiesOnTheOutBreath) {
    const BreathPhase breath = OneToSeven();
    struct Case {
        double Second;
        bool In;
        double Size;
    };
    // 0.4 + 0.6 * (1 - cos(x)) / 2 at x = 0, 60, 90, 180 degrees, and the same downwards.
    for (const Case& told :
         {Case{0, true, 0.4}, Case{1.0 / 3, true, 0.55}, Case{0.5, true, 0.7}, Case{1, false, 1.0},
          Case{4.5, false, 0.7}, Case{1 + 7 * 2 / 3.0, false, 0.55}, Case{8, true, 0.4}}) {
        const Breath now = breath.At(100 + told.Second + Near / 10);
        EXPECT_EQ(now.In, told.In) << told.Second;
        EXPECT_NEAR(now.Size, told.Size, 1e-6) << told.Second;
    }
}

TEST(BreathPhase, IsInTimeAfterAnHour) {
    BreathPhase breath;
    breath.Start(0.25);
    breath.SetRate(7.3, 0.25); // 438 breaths in 3600 seconds
    constexpr double Tolerance = 0.001;
    EXPECT_FALSE(breath.At(3600.25 - Tolerance).In);
    EXPECT_TRUE(breath.At(3600.25 + Tolerance).In);
    const double turn = 60 / 7.3 / 2;
    EXPECT_TRUE(breath.At(3600.25 + turn - Tolerance).In);
    EXPECT_FALSE(breath.At(3600.25 + turn + Tolerance).In);
}

TEST(BreathPhase, KeepsItsPlaceThroughEveryChange) {
    BreathPhase breath = OneToSeven();
    std::mt19937 dice(5);
    std::uniform_real_distribution<double> rate(0, 80);
    std::uniform_real_distribution<double> balance(0, 12);
    double now = 100;
    for (int i = 0; i < 2000; ++i) {
        now += rate(dice) / 20;
        const Breath before = breath.At(now);
        if (i % 2 == 0)
            breath.SetRate(rate(dice), now);
        else
            breath.SetBalance(balance(dice), now);
        const Breath after = breath.At(now);
        // At the very turn of the breath a last bit decides which half it is; its size is the same in both.
        ASSERT_NEAR(after.Size, before.Size, 1e-7) << i;
    }
    EXPECT_LE(breath.Rate(), 60);
    EXPECT_GE(breath.Balance(), 1);
}

TEST(BreathPhase, TakesNoNonsense) {
    BreathPhase breath = OneToSeven();
    for (const double value : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        breath.SetRate(value, 101);
        breath.SetBalance(value, 101);
    }
    EXPECT_EQ(breath.Rate(), 7.5);
    EXPECT_EQ(breath.Balance(), 7);
    breath.SetRate(-3, 101);
    EXPECT_EQ(breath.Rate(), 2);
}

} // namespace
} // namespace pulselark
