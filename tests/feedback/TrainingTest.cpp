#include "feedback/ggz.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"
#include "support/Heard.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"

namespace pulselark {
namespace {

class TrainingPanelBars : public SessionTest {
protected:
    TrainingPanelBars() {
        picGGZ = &Panel;
        picSD = &Bell;
        TrainingActive = On;
        // Bins 4, 5 and 9 by turns from second 15 on: 20, 9 and 1 of the first thirty.
        CoherenceA.Fill(0);
        for (int second = 15; second < 45; ++second)
            CoherenceA[second] = second % 3 == 0 ? 0.055F : 0.044F;
        CoherenceA[44] = 0.099F;
    }
    std::string Tick(Long second, double mode) {
        Panel.Forget();
        FeedbackMode = mode;
        AnalysisSecond = second;
        TickTraining();
        return pulselark::Heard(Outside.Partners);
    }

    RecordingSurface Panel{1000, 500}, Bell{100, 200};
};

TEST_F(TrainingPanelBars, BarsStandOnTheirBaseAndASingleSecondIsLeftOut) {
    Tick(44, 0);
    ASSERT_EQ(Panel.Boxes.size(), 3U); // two bins and the session's score
    EXPECT_EQ(Panel.Calls[0], 'C');
    // Bin 4 is the largest: full height; 8 wide around 606 - 20.8.
    EXPECT_NEAR(Panel.Boxes[0].X1, 606 - 20.8 - 4, 1e-9);
    EXPECT_NEAR(Panel.Boxes[0].X2, 606 - 20.8 + 4, 1e-9);
    EXPECT_NEAR(Panel.Boxes[0].Y1, 82.5, 1e-9);
    EXPECT_NEAR(Panel.Boxes[0].Y2, 82.5 + 330, 1e-9);
    EXPECT_EQ(Panel.Boxes[0].Ink, MakeColour(254, 175, 98));
    EXPECT_NEAR(Panel.Boxes[1].Y2, 82.5 + 330 * 10 / 19.0, 1e-9);
    EXPECT_NEAR(Panel.Boxes[2].X1, 744, 1e-9);
    EXPECT_NEAR(Panel.Boxes[2].X2, 767, 1e-9);
    EXPECT_NEAR(Panel.Boxes[2].Y2 - Panel.Boxes[2].Y1, SessionScore * 3.3, 1e-9);
    EXPECT_EQ(labDI[0].Caption, std::to_string(static_cast<int>(SessionScore)));
    EXPECT_EQ(labDI[1].Caption, "");
}

TEST_F(TrainingPanelBars, TheWindowIsInFrontInTheLastModeOnly) {
    DynamicIndexInterval = 10;
    Tick(44, 2);
    const std::size_t without = Panel.Boxes.size();
    const std::string heard = Tick(44, 3);
    EXPECT_EQ(heard, "=" + labDI[1].Caption);
    EXPECT_EQ(Panel.Boxes.size(), without + 3); // two bins and the index
    EXPECT_EQ(Panel.Boxes[0].Ink, MakeColour(254, 187, 121));
    EXPECT_EQ(Panel.Boxes[2].Ink, MakeColour(79, 133, 177));
    EXPECT_NEAR(Panel.Boxes[2].X2 - Panel.Boxes[2].X1, 4, 1e-9);
    EXPECT_EQ(Panel.Boxes.back().Ink, MakeColour(91, 153, 203));
    WindowScale = 40;
    Tick(44, 3);
    EXPECT_NEAR(Panel.Boxes[0].X2 - Panel.Boxes[0].X1, 6, 1e-9);
    EXPECT_NEAR(Panel.Boxes[2].X2 - Panel.Boxes[2].X1, 3, 1e-9);
}

TEST_F(TrainingPanelBars, TheWindowOfAWholeSessionTurnsIntoOneOf62Seconds) {
    DynamicIndexInterval = 61;
    for (Long second = 1; second <= 76; ++second) {
        Tick(second, 3);
        ASSERT_EQ(DynamicIndexInterval, 61) << second;
        // Until then it has nothing of its own: the index repeats the session's score.
        EXPECT_EQ(DynamicIndex, SessionScore) << second;
    }
    Tick(77, 3);
    EXPECT_EQ(DynamicIndexInterval, 62);
    Tick(200, 3);
    EXPECT_EQ(DynamicIndexInterval, 62);
    EXPECT_EQ(labDI[1].Caption, "0"); // nothing lies within the last 62 seconds
}

TEST_F(TrainingPanelBars, TheFirstSecondsScoreNothingAndARedrawSendsNothing) {
    EXPECT_EQ(Tick(14, 2), "=0");
    EXPECT_EQ(SessionScore, 0);
    EXPECT_EQ(Panel.Boxes.size(), 1U); // the score's, of no height
    EXPECT_EQ(Tick(20, 0), "");
    DynamicIndexInterval = 61;
    AnalysisSecond = 100;
    RedrawTraining();
    EXPECT_EQ(DynamicIndexInterval, 61);
    EXPECT_TRUE(Outside.Partners.Sent.empty());
}

TEST_F(TrainingPanelBars, TheBellFillsItsSurface) {
    DrawBellCurve();
    ASSERT_EQ(Bell.Traces.size(), 1U);
    const auto& points = Bell.Traces[0].Points;
    ASSERT_EQ(points.size(), 61U);
    EXPECT_NEAR(points[0].X, 0, 1e-9);
    EXPECT_NEAR(points[60].X, 100, 1e-9);
    EXPECT_NEAR(points[30].Y, 200 * 0.997356, 1e-3);
    EXPECT_NEAR(points[20].Y, 200 * 0.997356 * 0.606531, 1e-3); // one deviation from the middle
}

} // namespace
} // namespace pulselark
