#include "base/Numbers.h"

#include "base/Colour.h"
#include "base/Series.h"

#include <gtest/gtest.h>

namespace pulselark {
namespace {

TEST(Numbers, RoundingTakesTheEvenNeighbour) {
    const double halves[] = {-2.5, -1.5, -0.5, 0.5, 1.5, 2.5, 3.5, 1e9 + 0.5};
    const std::int64_t even[] = {-2, -2, 0, 0, 2, 2, 4, 1000000000};
    for (std::size_t i = 0; i < std::size(halves); ++i)
        EXPECT_EQ(Round(halves[i]), even[i]);
    EXPECT_EQ(Round(2.4999), 2);
    EXPECT_EQ(Round(2.5001), 3);
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

} // namespace
} // namespace pulselark
