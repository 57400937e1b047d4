#include "analysis/Resampler.h"

#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace pulselark {
namespace {

std::vector<float> Resampled(double rate, double seconds, double hertz, Resampler::Filter filter) {
    Resampler resampler(rate, 0, filter);
    std::vector<float> out;
    for (int i = 0; i < static_cast<int>(seconds * rate); ++i)
        resampler.Push(static_cast<float>(100 * std::cos(2 * std::numbers::pi * hertz * i / rate)), out);
    resampler.Flush(out);
    return out;
}

TEST(ResamplerTest, ASineComesOutInItsPlaceAtAnyRate) {
    for (const double rate : {125.0, 130.0, 200.0, 250.0, 256.0, 360.0, 133.33, 1000.0})
        for (const double hertz : {1.0, 10.0, 30.0})
            for (const auto filter : {Resampler::Thorough, Resampler::Prompt}) {
                const auto out = Resampled(rate, 10, hertz, filter);
                ASSERT_NEAR(static_cast<double>(out.size()), 1280, 1) << rate;
                for (std::size_t k = 32; k + 32 < out.size(); ++k)
                    ASSERT_NEAR(out[k],
                                100 * std::cos(2 * std::numbers::pi * hertz * static_cast<double>(k) / 128),
                                0.5)
                        << rate << " " << hertz << " " << k;
            }
}

TEST(ResamplerTest, WhatLiesAboveTheNewRateIsTakenOut) {
    const auto out = Resampled(1000, 5, 90, Resampler::Thorough); // would come out as 38 Hz
    for (std::size_t k = 32; k + 32 < out.size(); ++k)
        ASSERT_LT(std::abs(out[k]), 0.6);
}

TEST(ResamplerTest, AnOutputComesAfterItsDelayAndNotBefore) {
    Resampler resampler(250);
    std::vector<float> out;
    for (int i = 0; i < 1000; ++i) {
        resampler.Push(1, out);
        const double due = (i / 250.0 - resampler.Delay()) * 128;
        ASSERT_NEAR(static_cast<double>(out.size()), std::max(0.0, std::floor(due) + 1), 1);
    }
    EXPECT_LT(resampler.Delay(), 0.07);
    EXPECT_EQ(Resampler(128).Delay(), 0);
}

TEST(ResamplerTest, LostSamplesKeepTheirPlaceAndSpoilNoOther) {
    Resampler resampler(256), whole(256), same(128);
    std::vector<float> out, expected, passed;
    for (int i = 0; i < 1024; ++i) {
        const auto value = static_cast<float>(std::sin(i / 40.0));
        resampler.Push(i >= 512 && i < 640 ? std::numeric_limits<float>::quiet_NaN() : value, out);
        whole.Push(value, expected);
        same.Push(i == 3 ? std::numeric_limits<float>::quiet_NaN() : value, passed);
    }
    ASSERT_EQ(out.size(), expected.size());
    for (std::size_t k = 0; k < out.size(); ++k) {
        ASSERT_EQ(std::isnan(out[k]), k >= 256 && k < 320) << k;
        if (k < 240 || k >= 340) {
            ASSERT_EQ(out[k], expected[k]);
        }
    }
    EXPECT_TRUE(std::isnan(passed[3]));
    EXPECT_EQ(passed.size(), 1024U);
}

TEST(ResamplerTest, ARateThatNoMonitorHasFails) {
    for (const double rate : {0.0, std::numeric_limits<double>::quiet_NaN(), 1e9})
        EXPECT_THROW(Resampler{rate}, Failure) << rate;
}

} // namespace
} // namespace pulselark
