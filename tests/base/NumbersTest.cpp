#include "base/Colour.h"
#include "base/FFT.h"
#include "base/Numbers.h"
#include "base/Series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace pulselark {
namespace {

TEST(Numbers, RoundingTakesTheEvenNeighbour) {
    for (const auto& [value, whole] : {std::pair{0.5, 0}, {1.5, 2}, {2.5, 2}, {3.5, 4}, {-0.5, 0}, {-1.5, -2},
                                       {-2.5, -2}, {2.4999, 2}, {2.5001, 3}, {1e9 + 0.5, 1000000000}})
        EXPECT_EQ(Round(value), whole) << value;
}

TEST(Numbers, SeriesRefuseEveryIndexOutside) {
    Series<float, 4> series;
    series.at(1) = 1;
    series.at(4) = 4;
    EXPECT_EQ(series.data()[0] + series.data()[3], 5);
    for (const Long index : {0, 5, -1, 1 << 30}) {
        try {
            series.at(index) = 1;
            ADD_FAILURE() << index;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number, 9);
        }
    }
}

TEST(Numbers, ColoursMixChannelByChannel) {
    EXPECT_EQ(MixColours(0xFFFFFF, 0x000000), 0x808080U); // 127.5 goes to the even 128
    EXPECT_EQ(MixColours(0x893523, 0xFFFFFF), 0xC49A91U); // 196, 154, 145
    EXPECT_EQ(MixColours(0x010203, 0x020202), 0x020202U); // 1.5 and 2.5 both go to 2
}

TEST(Numbers, RampsReachTheirStopsAndPixelsOutsideAreHeld) {
    const Image ramp = MakeRamp(101, 2, true, {{0, 0x000000}, {0.5, 0x0000C8}, {1, 0x6400C8}});
    EXPECT_EQ(ramp.PixelAt(25, 0), 0x000064U);
    EXPECT_EQ(ramp.PixelAt(50, 1), 0x0000C8U);
    EXPECT_EQ(ramp.PixelAt(75, 0), 0x3200C8U);
    EXPECT_EQ(ramp.PixelAt(1000, -5), 0x6400C8U);
    EXPECT_EQ(Image{}.PixelAt(3, 3), 0U);
}

// Against the definition, summed in 64 bits.
TEST(Numbers, TransformAgreesWithTheDefinition) {
    std::minstd_rand random(7);
    for (const Long length : {256, 512, 1024}) {
        Series<float, 1024> in, zero, real, imaginary;
        for (Long i = 1; i <= length; ++i)
            in[i] = static_cast<float>(static_cast<double>(random() % 2001) - 1000);
        const auto before = in;
        fft_float(length, 0, in.data(), zero.data(), real.data(), imaginary.data());
        EXPECT_EQ(in, before);
        for (const Long k : {0, 1, 2, 37, 100, static_cast<int>(length / 2 - 1)}) {
            double re = 0, im = 0;
            for (Long n = 0; n < length; ++n) {
                const double angle = -2 * std::numbers::pi * k * n / length;
                re += in[n + 1] * std::cos(angle);
                im += in[n + 1] * std::sin(angle);
            }
            EXPECT_NEAR(real[k + 1], re, 0.05) << length << " " << k;
            EXPECT_NEAR(imaginary[k + 1], im, 0.05) << length << " " << k;
        }
    }
    Series<float, 1024> row;
    EXPECT_THROW(fft_float(128, 0, row.data(), row.data(), row.data(), row.data()), Failure);
    EXPECT_THROW(fft_float(256, 1, row.data(), row.data(), row.data(), row.data()), Failure);
}

} // namespace
} // namespace pulselark
