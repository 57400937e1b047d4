#include "session/SessionTick.h"

#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Replay.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

class Tick : public SessionTest {
protected:
    Tick() {
        MakeSession(60);
        ChannelBPresent = On;
        picIAP = &Panel;
        picIBP = &PanelB;
    }
    RecordingSurface Panel{578, 200}, PanelB{578, 200};
};

// The panels see the results of their own second, and the cursor has not moved yet.
TEST_F(Tick, AnalysesComeBeforePanelsAndTheCursorMovesLast) {
    SessionTick = 20;
    int pictures = 0;
    Panel.OnWipe = [&] {
        ++pictures;
        EXPECT_EQ(SessionTick, 20);
        EXPECT_EQ(AnalysisSecond, 20);
        EXPECT_EQ(SpectrumTrack.A.LastSecond, 20);
        EXPECT_EQ(SpectrumTrack.B.LastSecond, 20);
        EXPECT_GT(CoherenceA[21], 0);
        EXPECT_EQ(CoherenceAvgA[21], CoherenceA[21]);
        EXPECT_EQ(CoherenceAvgB[21], CoherenceB[21]);
        EXPECT_GT(HrvPowerB[1], 0);
        EXPECT_TRUE(PanelB.Untouched()); // A before B
    };
    RunSessionTick();
    EXPECT_EQ(pictures, 1);
    EXPECT_EQ(PanelB.Traces.size(), 2U);
    EXPECT_EQ(SessionTick, 21);
    EXPECT_EQ(labPTime.Caption, "00:20");
    // Each transform ran for A first: the shared buffers hold B's second.
    EXPECT_EQ(FftRealIn1024[1024], EcgB[20 * 128]);
    EXPECT_EQ(CepstrumRealIn, SpectrumAvgB[SpectrumSlotB]);
    EXPECT_EQ(HrvRealIn[1], IbiB[20]);
}

TEST_F(Tick, LinkOnlyDrawsNothingAndStillMovesOn) {
    AppLinkOnly = On;
    SessionTick = 20;
    RunSessionTick();
    EXPECT_TRUE(Panel.Untouched() && PanelB.Untouched());
    EXPECT_EQ(SessionTick, 21);
    EXPECT_GT(CoherenceA[21], 0);
}

TEST_F(Tick, StartNoticeCountsDownToSecondFourteen) {
    FeedbackMode = 2;
    TrainingActive = On;
    for (SessionTick = 1; SessionTick < 14; ++SessionTick) {
        ShowStartNotice();
        EXPECT_TRUE(labBFStart.Visible);
        EXPECT_EQ(labBFStart.Caption, "<356>" + std::to_string(14 - SessionTick) + "<357>");
    }
    ShowStartNotice();
    EXPECT_FALSE(labBFStart.Visible);
    SessionTick = 3;
    for (const auto& [mode, training, enabled] :
         {std::tuple{1.0, On, On}, {3.0, Off, On}, {3.0, On, Off}, {-1.0, On, On}}) {
        FeedbackMode = mode;
        TrainingActive = training;
        FeedbackEnabled = enabled;
        labBFStart.Visible = true;
        ShowStartNotice();
        EXPECT_FALSE(labBFStart.Visible) << mode;
    }
}

} // namespace
} // namespace pulselark
