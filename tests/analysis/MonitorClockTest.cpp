#include "analysis/MonitorClock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace pulselark {
namespace {

// A monitor whose samples reach the program up to 40 ms late, never early.
struct MonitorClockTest : testing::Test {
    MonitorClock Monitor;
    std::mt19937 Draw{1};
    Long Now = 0;
    double Lag = 3;   // the way of the samples
    double Drift = 0; // samples a second that the monitor makes too few

    void Run(double seconds) {
        const Long end = Now + static_cast<Long>(seconds * 1000);
        for (; Now < end; Now += 20) {
            Lag += Drift * 0.02;
            const double waiting = std::uniform_real_distribution<>(0, 5)(Draw);
            Monitor.Compare(Now, Lag + waiting);
        }
    }
};

TEST_F(MonitorClockTest, ADriftIsKnownFromTenSecondsOnAndFollowed) {
    for (const double drift : {0.0, 0.045, -0.045, 3.0}) {
        Monitor = {};
        Now = 0;
        Lag = 3;
        Drift = drift;
        Run(10);
        EXPECT_EQ(Monitor.Missing(Now), 0);
        for (int minute = 0; minute < 10; ++minute) {
            Run(60);
            ASSERT_NEAR(Monitor.Missing(Now), drift * Now / 1000, 0.5) << drift << " " << minute;
            ASSERT_NEAR(Monitor.Drift(), drift, 0.05);
        }
    }
}

TEST_F(MonitorClockTest, ALossWithoutAWordIsFoundOnceAndLeavesTheDriftAlone) {
    Drift = 0.02;
    Run(60);
    EXPECT_EQ(Monitor.TakeLoss(), 0);
    Lag += 100; // as many were lost
    Run(2);
    EXPECT_EQ(Monitor.TakeLoss(), 0) << "one bad window is none";
    Run(5);
    const Long loss = Monitor.TakeLoss();
    EXPECT_NEAR(loss, 100, 1);
    Lag -= loss;
    Run(60);
    EXPECT_EQ(Monitor.TakeLoss(), 0);
    EXPECT_NEAR(Monitor.Missing(Now), 0.02 * Now / 1000 + 100 - loss, 0.5);
    EXPECT_NEAR(Monitor.Drift(), 0.02, 0.01);
}

TEST_F(MonitorClockTest, SamplesThatWaitForTwoSecondsAreNoLoss) {
    Run(30);
    const double way = Lag;
    Lag = way + 200; // all of them wait
    Run(1.9);
    Lag = way;
    Run(20);
    EXPECT_EQ(Monitor.TakeLoss(), 0);
    EXPECT_NEAR(Monitor.Missing(Now), 0, 0.3);
}

TEST_F(MonitorClockTest, AfterALossTheFirstWindowsTellWhereTheCountBegan) {
    Drift = 0.045;
    Run(120);
    Monitor.Connect();
    const double begins = Lag = Monitor.UsualLag() + 2; // it was taken to begin 2 samples too late
    Run(5);
    EXPECT_NEAR(Monitor.Missing(Now), 2 + Lag - begins, 0.6);
    EXPECT_NEAR(Monitor.Drift(), 0.045, 0.02);
    Lag -= 40; // older samples than were taken for granted come
    Run(10);
    EXPECT_NEAR(Monitor.Missing(Now), Lag - Monitor.UsualLag(), 0.6);
    EXPECT_NEAR(Monitor.Drift(), 0.045, 0.03);
}

} // namespace
} // namespace pulselark
