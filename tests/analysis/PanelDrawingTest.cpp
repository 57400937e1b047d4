#include "analysis/PanelDrawing.h"

#include "analysis/ModulePlaces.h"
#include "support/SessionTest.h"

namespace pulselark {
namespace {

using PanelDrawing = SessionTest;

TEST_F(PanelDrawing, GridStepIsTheSmallestThatKeepsTheDistance) {
    const auto wide = GridSteps::Wide;
    const auto narrow = GridSteps::Narrow;
    EXPECT_EQ(ChooseGridStep(12, 480, 40, narrow), 1); // 12 units each: not below the least
    EXPECT_EQ(ChooseGridStep(12.1, 480, 40, narrow), 2);
    EXPECT_EQ(ChooseGridStep(24, 300, 64, narrow), 10); // 4.69 a value: 5 make 23.4
    EXPECT_EQ(ChooseGridStep(12, 200, 480, wide), 50);  // 0.417 a value: 20 make 8.3
    EXPECT_EQ(ChooseGridStep(12, 40, 480, wide), 200);  // 0.083 a value: 100 make 8.3
    EXPECT_EQ(ChooseGridStep(12, 40, 480, narrow), 50); // none fits
    EXPECT_EQ(ChooseGridStep(12, 480, 0, narrow),
              50); // no values: the largest, unless no distance is asked for
    EXPECT_EQ(ChooseGridStep(0, 480, 0, wide), 1);
}

TEST_F(PanelDrawing, TimeLabelsStartAgainEachHour) {
    EXPECT_EQ(FormatMinSec(9) + FormatMinSec(60) + FormatMinSec(3565), "00:0901:0059:25");
    EXPECT_EQ(FormatMinSec(3599) + FormatMinSec(3600) + FormatMinSec(3661), "59:5900:0001:01");
}

TEST_F(PanelDrawing, PanelsShareTheRoomOfTheirModule) {
    const auto [a, b] = PanelPlaces(6000, 4000, 300, true);
    EXPECT_EQ(a.Left, 120);
    EXPECT_EQ(a.Width, 5760);
    EXPECT_EQ(a.Top, 420);
    EXPECT_EQ(a.Height, 1670);
    EXPECT_EQ(b.Top, 2210);
    EXPECT_EQ(b.Height, 1670);
    EXPECT_LE(b.Top + b.Height, 4000);
    const auto [alone, none] = PanelPlaces(6000, 4000, 300, false);
    EXPECT_EQ(alone.Height, 3460);
    EXPECT_EQ(none.Height, 0);
    EXPECT_EQ(PanelPlaces(100, 100, 300, true).first.Height, 0);
}

} // namespace
} // namespace pulselark
