#include "scenery/SceneryState.h"

#include "scenery/TidalState.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace pulselark {
namespace {

LinkMessage Command(double command, double p1 = 0, double p2 = 0, double p3 = 0, double p4 = 0) {
    LinkMessage message;
    EXPECT_TRUE(UnpackLinkMessage(PackLinkCommand(command, p1, p2, p3, p4), message));
    return message;
}
LinkMessage Value(double value) {
    LinkMessage message;
    EXPECT_TRUE(UnpackLinkMessage(PackLinkValue(value), message));
    return message;
}

constexpr double Later = 60; // seconds after which all motion has ended

TEST(SceneryState, FollowsASessionAtLevelTwo) {
    SceneryState state;
    EXPECT_EQ(state.Take(Command(123123, 240, 120, 900, 600), 0), WindowAction::TakePlace);
    EXPECT_EQ(state.Place().Left, 240);
    EXPECT_EQ(state.Place().Height, 600);
    for (const double command : {223.0, 231.0, 225.0})
        EXPECT_EQ(state.Take(Command(command), 0), WindowAction::Nothing);
    state.Take(Command(222, 2), 0);
    state.Take(Value(80), 10);
    EXPECT_NEAR(state.Light(10), 0.5, 1e-9) << "nothing jumps";
    EXPECT_NEAR(state.Light(15), 0.77, 0.001) << "nine tenths of the way after five seconds";
    state.Take(Value(250), 20);
    EXPECT_NEAR(state.Light(20 + Later), 1, 1e-6);
    state.Take(Value(std::nan("")), 90);
    EXPECT_NEAR(state.Light(90 + Later), 1, 1e-6);
    EXPECT_NEAR(state.SceneTime(200) - state.SceneTime(100), 100, 1e-6);
    EXPECT_FALSE(state.ScenerySettled(200));

    state.Take(Command(226), 200);
    EXPECT_TRUE(state.ScenerySettled(200 + Later));
    EXPECT_EQ(state.SceneTime(200 + Later), state.SceneTime(200 + 2 * Later));
    EXPECT_EQ(state.Take(Command(227), 300), WindowAction::Close);
}

TEST(SceneryState, ScrollsWhenItComesIntoASessionThatRuns) {
    SceneryState state;
    state.Take(Value(40), 0);
    EXPECT_FALSE(state.Scrolling()) << "no level is known yet";
    for (const double command : {123123.0, 223.0, 231.0})
        state.Take(Command(command, 0, 0, 900, 600), 0);
    state.Take(Command(222, 3), 0);
    EXPECT_FALSE(state.Scrolling());
    state.Take(Value(40), 1);
    EXPECT_TRUE(state.Scrolling());
    state.Take(Command(226), 2);
    state.Take(Value(40), 3);
    EXPECT_FALSE(state.Scrolling()) << "what was told counts";
}

TEST(SceneryState, SwingsWithTheHeartAtLevelOne) {
    SceneryState state;
    state.Take(Command(222, 1), 0);
    state.Take(Value(60.0 / 70), 0);
    EXPECT_NEAR(state.Light(Later), 0.5, 1e-6) << "the first rate is the person's own";
    state.Take(Value(60.0 / 80), Later);
    const double quick = state.Light(2 * Later);
    EXPECT_GT(quick, 0.7);
    EXPECT_LT(quick, 0.9);
    for (const double interval : {0.0, -1.0, 55.0, 1e300})
        state.Take(Value(interval), 2 * Later);
    EXPECT_EQ(state.Light(3 * Later), quick) << "no heart beats so";
    state.Take(Value(60.0 / 60), 3 * Later);
    EXPECT_LT(state.Light(4 * Later), 0.3);
}

TEST(SceneryState, LedByEveryCommandOfTheTable) {
    SceneryState state;
    state.Take(Value(100), 0);
    EXPECT_EQ(state.Light(Later), 0.5) << "without a level values mean nothing";
    state.Take(Command(230), 5);
    EXPECT_TRUE(state.PacerOn());
    EXPECT_NEAR(state.BreathAt(5).Size, 0.4, 1e-9);
    state.Take(Command(230), 7);
    EXPECT_NEAR(state.BreathAt(9).Size, 1, 1e-9) << "once on, it is not begun anew";
    state.Take(Command(228, 6), 9);
    state.Take(Command(232, 5.0 / 3), 9);
    EXPECT_EQ(state.Pacer().Rate(), 6);
    EXPECT_EQ(state.Pacer().Balance(), 5.0 / 3);
    EXPECT_NEAR(state.BreathAt(9).Size, 1, 1e-9);
    state.Take(Command(231), 10);
    EXPECT_FALSE(state.PacerOn());

    EXPECT_EQ(state.Take(Command(233), 0), WindowAction::ComeForward);
    EXPECT_EQ(state.Take(Command(234), 0), WindowAction::ShowMenu);
    EXPECT_EQ(state.Take(Command(239), 0), WindowAction::StepBehind);
    EXPECT_EQ(state.Take(Command(240), 0), WindowAction::ComeForward);
    EXPECT_EQ(state.Take(Command(242), 0), WindowAction::Nothing) << "no settings were open";
    EXPECT_EQ(state.Take(Command(241), 0), WindowAction::StepBehind);
    EXPECT_EQ(state.Take(Command(242), 0), WindowAction::ComeForward);

    state.Take(Command(503), 0);
    EXPECT_EQ(state.Scheme(), 3);
    state.Take(Command(505), 0);
    EXPECT_EQ(state.Scheme(), 3);

    state.Take(Command(222, 3), 20);
    state.Take(Command(123), 20);
    state.Take(Value(90), 20);
    EXPECT_NEAR(state.Light(20 + Later), 0.5, 1e-6) << "without feedback";
    state.Take(Command(999), 100);
    state.Take(Value(90), 100);
    EXPECT_NEAR(state.Light(100 + Later), 0.9, 1e-6);
    state.Take(Command(237), 200);
    state.Take(Value(40), 200);
    EXPECT_NEAR(state.Light(202), 0.45, 0.001) << "quicker in time lapse";
    state.Take(Command(225), 300);
    state.Take(Command(321), 400);
    EXPECT_FALSE(state.Scrolling());
    EXPECT_NEAR(state.Light(400 + Later), 0.5, 1e-6);
}

TEST(SceneryState, RefusesPlacesThatAreNone) {
    const double huge = std::numeric_limits<double>::infinity();
    SceneryState state;
    for (const auto& place : {Command(123123, 0, 0, 0, 0), Command(123123, 0, 0, -5, 300),
                              Command(123123, std::nan(""), 0, 300, 300), Command(123123, 0, huge, 300, 300)})
        EXPECT_EQ(state.Take(place, 0), WindowAction::Nothing);
    EXPECT_EQ(state.Place().Width, 0);
}

TEST(SceneryState, LightHasNoKink) {
    SceneryState state;
    state.Take(Command(222, 2), 0);
    constexpr double Step = 0.01;
    double before = state.Light(0);
    double speed = 0;
    for (int i = 1; i < 6000; ++i) {
        if (i % 100 == 0)
            state.Take(Value(i % 300 == 0 ? 100 : 0), i * Step);
        const double light = state.Light(i * Step);
        ASSERT_LT(std::fabs((light - before) / Step - speed), 0.02) << i * Step;
        speed = (light - before) / Step;
        before = light;
    }
}

TEST(TidalState, KeepsWhatASessionSends) {
    TidalState state;
    std::array<float, LinkSpectrumItems> bins{};
    bins[0] = 900;
    bins[80] = 12;
    LinkMessage message;
    ASSERT_TRUE(UnpackLinkMessage(PackLinkSpectrum(bins), message));
    EXPECT_TRUE(state.Take(message));
    EXPECT_EQ(state.Spectrum[80], 12.0F);
    EXPECT_EQ(state.SpectrumScale, 12) << "the first item is no part of the curve's height";
    for (int second = 1; second <= 400; ++second) {
        EXPECT_TRUE(state.Take(Command(243, second)));
        EXPECT_TRUE(state.Take(Value(second / 4.0)));
    }
    EXPECT_EQ(state.Second, 400);
    ASSERT_EQ(state.Coherence.size(), 300U);
    EXPECT_EQ(state.Coherence.back(), 100.0F);
    EXPECT_EQ(state.Coherence.front(), 25.25F);
    state.Take(Command(243, 12));
    EXPECT_TRUE(state.Coherence.empty()) << "the session went back";
    state.Take(Command(502));
    state.Take(Command(244));
    EXPECT_EQ(state.Second, 0);
    EXPECT_EQ(state.Scheme, 2);
    EXPECT_FALSE(state.Take(Command(228, 6)));
}

// Payloads of every length and kind, with the bits of any Double in them.
TEST(SceneryState, StandsWhateverArrives) {
    std::mt19937_64 dice(11);
    SceneryState scenery;
    TidalState tidal;
    constexpr std::array Heads{12345678.0, 87654321.0, 89898989.0};
    constexpr std::array Commands{222.0, 225.0, 226.0, 228.0, 230.0, 232.0, 237.0, 243.0, 123123.0, 500.0};
    double now = 0;
    for (int i = 0; i < 20000; ++i) {
        std::vector<double> values(dice() % 260);
        for (double& value : values) {
            const std::uint64_t bits = dice();
            std::memcpy(&value, &bits, sizeof value);
        }
        if (!values.empty() && dice() % 8 != 0)
            values[0] = Heads.at(dice() % Heads.size());
        if (values.size() > 1 && dice() % 4 != 0)
            values[1] = values[0] == Heads[2] ? static_cast<double>(dice() % 2)
                                              : Commands.at(dice() % Commands.size());
        const auto* bytes = reinterpret_cast<const unsigned char*>(values.data());
        LinkMessage message;
        if (!UnpackLinkMessage({bytes, values.size() * sizeof(double)}, message))
            continue;
        now += 0.1;
        scenery.Take(message, now);
        tidal.Take(message);
        ASSERT_GE(scenery.Light(now), -0.2) << "a spring may swing over, but not far";
        ASSERT_LE(scenery.Light(now), 1.2);
        ASSERT_GE(scenery.BreathAt(now).Size, 0.4 - 1e-9);
        ASSERT_LE(scenery.BreathAt(now).Size, 1 + 1e-9);
        ASSERT_TRUE(std::isfinite(scenery.SceneTime(now)));
        ASSERT_TRUE(std::isfinite(tidal.HeartRateScale) && tidal.SpectrumScale < 1e31);
        ASSERT_LE(tidal.Coherence.size(), TidalState::HistorySeconds);
    }
}

} // namespace
} // namespace pulselark
