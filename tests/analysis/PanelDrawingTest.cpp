#include "analysis/PanelDrawing.h"

#include "analysis/ColourSchemes.h"
#include "support/SessionTest.h"

namespace pulselark {
namespace {

using PanelDrawing = SessionTest;

TEST_F(PanelDrawing, GridStepIsTheSmallestThatKeepsTheDistance) {
    const struct {
        double Least, Length, Count;
        GridSteps Steps;
        int Step;
    } cases[] = {
        {12, 480, 40, GridSteps::Narrow, 1},    // 12 units each: not below the least
        {12.1, 480, 40, GridSteps::Narrow, 2},  //
        {24, 300, 64, GridSteps::Narrow, 10},   // 4.69 a value: 5 make 23.4
        {12, 200, 480, GridSteps::Wide, 50},    // 0.417 a value: 20 make 8.3
        {12, 40, 480, GridSteps::Wide, 200},    // 0.083 a value: 100 make 8.3
        {12, 40, 480, GridSteps::Narrow, 50},   // none fits
        {1e9, 1, 1, GridSteps::Wide, 200},      //
        {12, 480, 0, GridSteps::Narrow, 50},    // no values: the largest, unless no distance is asked for
        {0, 480, 0, GridSteps::Wide, 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ChooseGridStep(c.Least, c.Length, c.Count, c.Steps), c.Step) << c.Least << " " << c.Length;
}

TEST_F(PanelDrawing, TimeLabelsStartAgainEachHour) {
    for (const auto& [seconds, text] : {std::pair{0, "00:00"}, {9, "00:09"}, {59, "00:59"}, {60, "01:00"},
                                        {3565, "59:25"}, {3599, "59:59"}, {3600, "00:00"}, {3601, "00:01"}})
        EXPECT_EQ(FormatMinSec(seconds), text);
}

TEST_F(PanelDrawing, LayersRunAlongTheRamp) {
    ColourSchemeIndex = 4;
    const Image& ramp = picWGradient(4);
    EXPECT_EQ(ColoursOfLayer(0, 6).Layer, ramp.PixelAt(0, 4));
    EXPECT_EQ(ColoursOfLayer(3, 6).Layer, ramp.PixelAt(251, 4)); // 3 / 6.1 * 511 = 251.3
    EXPECT_EQ(ColoursOfLayer(6, 6).Layer, ramp.PixelAt(503, 4)); // 6 / 6.1 * 511 = 502.6
    EXPECT_EQ(ColoursOfLayer(0, 0).Layer, 0x46AFFFU);            // the newest, alone
    EXPECT_EQ(ColoursOfLayer(0, 0).Shadow, MixColours(0x46AFFF, PanelBackColour()));
    SolidGraphs = On;
    EXPECT_EQ(ColoursOfLayer(2, 6).Layer, MixColours(0x3888E3, PanelBackColour()));
}

TEST_F(PanelDrawing, EachSchemeCanBeToldFromItsBackground) {
    for (Integer scheme = 0; scheme < ColourSchemeCount; ++scheme) {
        ColourSchemeIndex = scheme;
        EXPECT_EQ(picWGradient(scheme).Width, 512);
        EXPECT_EQ(picModBGSrc(scheme).Height, 256);
        for (const Colour ink : {CurrentScheme().Text, CurrentScheme().Fill, ColoursOfLayer(0, 0).Layer}) {
            const Colour back = PanelBackColour();
            const int distance = std::abs(RedOf(ink) - RedOf(back)) + std::abs(GreenOf(ink) - GreenOf(back)) +
                                 std::abs(BlueOf(ink) - BlueOf(back));
            EXPECT_GT(distance, 150) << scheme;
        }
    }
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
