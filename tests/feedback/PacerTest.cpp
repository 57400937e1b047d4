#include "feedback/Pacer.h"

#include "base/Text.h"
#include "persistence/TrainingSettings.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"
#include "session/Training.h"
#include "support/Heard.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"

namespace pulselark {
namespace {

class PacerSettings : public SessionTest {
protected:
    PacerSettings() {
        picBWave = &Wave;
        const std::pair<int, const char*> words[] = {{391, "In: "}, {392, " Out: "}, {393, " Total: "},
                                                     {394, " s."},  {387, "/min."},  {396, "Entire session"},
                                                     {66, " sec."}};
        for (const auto& [item, text] : words)
            LanguageTable(0, item) = text;
    }
    std::string Heard() { return pulselark::Heard(Outside.Partners); }

    RecordingSurface Wave{1200, 1200}; // ten units to one of the wave's own scale
};

TEST_F(PacerSettings, TheBalanceReadsAsARatioWhereItIsOne) {
    struct Row {
        const char* Text;
        double Balance;
        int Bar;
        bool Fibonacci;
    };
    const Row rows[] = {{"1 : 1.0", 1, 10, false},
                        {"2 : 3", 1.5, 15, true},
                        {"Phi", 1.618033988749895, 16, true},
                        {"3 : 5", 1.6666666666666667, 17, true},
                        {"2 : 5", 2.5, 25, true},
                        {"5: 13", 2.6, 26, true},
                        {"3 : 8", 2.6666666666666665, 27, true},
                        {"2 : 8", 4, 40, true},
                        {"5 : 21", 4.2, 42, true},
                        {"3 : 13", 4.333333333333333, 43, true},
                        {"2 : 13", 6.5, 65, true},
                        {"3 : 21", 7, 70, true},
                        {"1 : 9.9", 9.9, 99, false},
                        {"1 : 10.0", 10, 200, false}};
    for (const Row& row : rows) {
        MoveBreathingBalance(row.Bar);
        EXPECT_EQ(labBB.Caption, row.Text) << row.Bar;
        EXPECT_EQ(BreathingBalance, row.Balance) << row.Bar;
        EXPECT_EQ(labFibo.Visible, row.Fibonacci) << row.Bar;
    }
    MoveBreathingBalance(17); // a ratio that comes back from the settings is no longer read as one
    DrawBreathingWave();
    EXPECT_EQ(labBB.Caption, "1 : 1.7");
    EXPECT_FALSE(labFibo.Visible);
    ChoosePhi();
    EXPECT_EQ(labBB.Caption, "Phi");
}

TEST_F(PacerSettings, PhaseTimesAndDecimalTies) {
    MoveBreathingBalance(70);
    MoveBreathingRate(75);
    EXPECT_EQ(labBRB.Caption, "In: 1.0 Out: 7.0 Total: 8.0 s.");
    EXPECT_EQ(labBR.Caption, "7.5/min.");
    MoveBreathingBalance(10);
    MoveBreathingRate(32);
    EXPECT_EQ(labBRB.Caption, "In: 9.4 Out: 9.4 Total: 18.8 s."); // 9.375 and 18.75
    MoveBreathingRate(9999);
    EXPECT_EQ(labBRB.Caption, "In: 0.5 Out: 0.5 Total: 1.0 s.");
    EXPECT_EQ(labBR.Caption, "60/min.");
    const std::pair<double, const char*> ties[] = {{0.25, "0.3"},      {0.15, "0.2"},  {1.05, "1.1"},
                                                   {1.0499999, "1.0"}, {9.95, "10.0"}, {0.04, "0.0"},
                                                   {-0.25, "-0.3"},    {-0.01, "0.0"}};
    for (const auto& [value, text] : ties)
        EXPECT_EQ(OneDecimal(value), text) << value;
}

// The in-breath ends at 100 / (b + 1), where the wave is at its bottom; it begins and ends at its top.
TEST_F(PacerSettings, TheWaveIsDrawnOnceForABalance) {
    MoveBreathingBalance(30);
    ASSERT_EQ(Wave.Traces.size(), 1U);
    const auto& points = Wave.Traces[0].Points;
    ASSERT_EQ(points.size(), 100U);
    EXPECT_EQ(Wave.Traces[0].DrawWidth, 2);
    EXPECT_NEAR(points[0].X, 100, 1e-6);
    EXPECT_NEAR(points[0].Y, 1100, 2);
    EXPECT_NEAR(points[49].X, 100 + 10 * 49 * 0.5, 1e-6);
    EXPECT_NEAR(points[49].Y, 100, 1e-3);
    EXPECT_NEAR(points[50].X, 100 + 10 * 25, 1e-6); // the first of the out-breath lies at the bottom too
    EXPECT_NEAR(points[50].Y, 100, 1e-3);
    EXPECT_NEAR(points[51].X - points[50].X, 15, 1e-6);
    EXPECT_NEAR(points[99].Y, 1100, 2);
    ASSERT_EQ(Wave.Segments.size(), 1U);
    EXPECT_NEAR(Wave.Segments[0].X1, 100 + 10 * 25, 1e-6);
    EXPECT_EQ(Heard(), "232:3");
    MoveBreathingRate(60); // the rate has no part in the picture
    EXPECT_EQ(Wave.Traces.size(), 1U);
    EXPECT_EQ(Heard(), "232:3 228:6");
}

TEST_F(PacerSettings, IntervalAndSwitches) {
    MoveIndexInterval(3);
    EXPECT_EQ(labDIBFTime.Caption, "4 sec.");
    MoveIndexInterval(60);
    EXPECT_EQ(labDIBFTime.Caption, "60 sec.");
    MoveIndexInterval(61);
    EXPECT_EQ(labDIBFTime.Caption, "Entire session");
    DynamicIndexInterval = 62; // as a training leaves it
    EXPECT_NE(TrainingSettingsText().find("\n61\r\n"), std::string::npos);
    MoveVolume(101);
    EXPECT_EQ(labVol.Caption, "%100");
    ToggleAutoStartBreathing();
    EXPECT_EQ(labAutoStartBT.Caption, "<404>");
    EXPECT_EQ(Heard(), "");
    ToggleAutoStartBreathing();
    EXPECT_EQ(labAutoStartBT.Caption, "<405>");
    EXPECT_EQ(Heard(), "231");
    for (const int background : {1, 2, 0}) {
        NextPanelBackground();
        EXPECT_EQ(PanelBackground, background);
    }
}

TEST_F(PacerSettings, TheFormTellsTheSceneryThatItOpensAndCloses) {
    ClickTrainingSettings();
    EXPECT_EQ(Heard(), "241");
    ClickTrainingSettings(); // its button closes it as well
    EXPECT_EQ(Heard(), "242 240");
    EXPECT_EQ(TrainingSettingsOpen, Off);
    ChooseScenery();
    EXPECT_EQ(Outside.Boxes.Shown.back().Text, "<272>");
    ClickTrainingSettings();
    picRestoreGame.Visible = true;
    Heard();
    ChooseScenery();
    EXPECT_EQ(Heard(), "242 240 234");
    EXPECT_EQ(labRestoreGame.Caption, "<380>");
    EXPECT_TRUE(timRestoreGameFirst.Enabled);
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
}

} // namespace
} // namespace pulselark
