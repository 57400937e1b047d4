#include "session/Seek.h"

#include "analysis/InputCD.h"
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

// A panel of 400 units has 12 steps across: 400 units of 15 twips are 6000, times 10 / 5000.
class Seek : public SessionTest {
protected:
    Seek() {
        MakeSession(100);
        SessionTick = 50;
        picIA = &Panel;
        picIB = &PanelB;
    }

    void Anchor(double y) { SeekByEcgPanel(0, 200, y, 400, 120); }
    // A little past `steps` steps from the anchor at 200.
    void Drag(double steps) { SeekByEcgPanel(1, 200 + 400 * (steps + 0.3) / 12, 60, 400, 120); }

    RecordingSurface Panel{578, 200}, PanelB{578, 200};
};

TEST_F(Seek, RowsGiveOneFiveAndThirtySeconds) {
    const struct {
        double Y;
        Long StepForward, StepsBack;
    } rows[] = {{5, 51, 47},  {29, 51, 47}, {31, 55, 35}, {60, 55, 35},
                {89, 55, 35}, {91, 80, 1},  {120, 80, 1}};
    for (const auto& [y, forward, back] : rows) {
        SessionTick = 50;
        Anchor(y);
        Drag(1);
        EXPECT_EQ(SessionTick, forward) << y;
        EXPECT_EQ(SpectrumTrack.B.LastSecond, forward);
        Anchor(y); // the new place is the anchor
        SessionTick = 50;
        Anchor(y);
        Drag(-3);
        EXPECT_EQ(SessionTick, back) << y;
    }
    SessionTick = 50;
    Anchor(5);
    Drag(0);
    EXPECT_EQ(SessionTick, 50);
    Drag(-0.31); // just left of the anchor is a step back already
    EXPECT_EQ(SessionTick, 49);
}

TEST_F(Seek, ADragBeyondTheEndComesBackAtOnce) {
    Anchor(120);
    SeekByEcgPanel(1, 390, 60, 400, 120);
    EXPECT_EQ(SessionTick, 100);
    SeekByEcgPanel(1, 2000, 60, 400, 120);
    EXPECT_EQ(SessionTick, 100);
    SeekByEcgPanel(1, 1999, 60, 400, 120);
    EXPECT_EQ(SessionTick, 70);
    SeekByEcgPanel(1, -3000, 60, 400, 120);
    EXPECT_EQ(SessionTick, 1);
    SeekByEcgPanel(1, -3000 + 400 * 1.3 / 12, 60, 400, 120);
    EXPECT_EQ(SessionTick, 31);
}

TEST_F(Seek, ANewSecondIsAnalysedAndDrawnOnThePanels) {
    Anchor(5);
    Drag(3);
    EXPECT_EQ(SessionTick, 53);
    EXPECT_EQ(AnalysisSecond, 53);
    EXPECT_EQ(SpectrumTrack.A.AverageCount, 1);
    EXPECT_GT(CoherenceA[54], 0.055F);
    EXPECT_EQ(Panel.Traces.size(), 2U);
    EXPECT_EQ(PanelB.Traces.size(), 2U);
    EXPECT_EQ(labPTime.Caption, "00:53");
    EXPECT_EQ(SeekBusy, Off);
    const Integer slot = CepstrumSlotA;
    Drag(3); // the same second again
    EXPECT_EQ(CepstrumSlotA, slot);
    Drag(4);
    EXPECT_EQ(CepstrumSlotA, slot + 1);
    EXPECT_EQ(SpectrumTrack.A.AverageCount, 2);
    EXPECT_FALSE(timReplay.Enabled);
}

TEST_F(Seek, SecondOneMovesTheCursorOnly) {
    SessionTick = 3;
    Anchor(5);
    Drag(-2);
    EXPECT_EQ(SessionTick, 1);
    EXPECT_EQ(AnalysisSecond, 0);
    EXPECT_TRUE(Panel.Untouched());
    ReleaseEcgPanel();
    EXPECT_EQ(Panel.Traces.size(), 2U);
    EXPECT_EQ(labPTime.Caption, "00:02");
}

TEST_F(Seek, NothingMovesWhileTheSessionIsBusy) {
    for (Boolean* busy : {&LoadingSession, &SavingSession, &Rescanning, &SeekBusy, &SessionRunning}) {
        Anchor(120);
        *busy = On;
        Drag(1);
        SeekToSecond(20);
        EXPECT_EQ(SessionTick, 50);
        EXPECT_EQ(AnalysisSecond, 0);
        *busy = Off;
    }
    SessionSeconds = 0;
    Drag(1);
    SeekToSecond(20);
    ReleaseEcgPanel();
    EXPECT_EQ(SessionTick, 50);
    EXPECT_TRUE(Panel.Untouched());
}

// What a seek has left on show is gone once a replay has drawn over it.
TEST_F(Seek, ASecondSoughtBeforeAReplayIsComputedAgain) {
    Anchor(5);
    Drag(3);
    ReleaseReplayButton(RightButton);
    ReplayTick();
    ReplayTick();
    EXPECT_EQ(AnalysisSecond, 54);
    EXPECT_EQ(SessionTick, 55);
    SeekToSecond(53);
    EXPECT_EQ(AnalysisSecond, 53);
    EXPECT_EQ(labPTime.Caption, "00:53");
    EXPECT_EQ(SpectrumTrack.A.LastSecond, 53);
}

// The seek lets the message loop run before it computes; a drag that arrives then must wait.
TEST_F(Seek, ADragWithinASeekIsRefused) {
    Anchor(5);
    Outside.Loop.OnYield = [&] {
        EXPECT_EQ(SeekBusy, On);
        EXPECT_EQ(AnalysisSecond, 53);
        EXPECT_EQ(SpectrumTrack.A.LastSecond, 0);
        Drag(7);
        SeekToSecond(90);
    };
    Drag(3);
    EXPECT_EQ(Outside.Loop.Yields, 1);
    EXPECT_EQ(SessionTick, 53);
    EXPECT_EQ(SpectrumTrack.A.LastSecond, 53);
}

TEST_F(Seek, ByKeysTheReplayEndsAndTheCursorIsHeld) {
    StartReplay(false);
    SeekToSecond(30);
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(AnalysisSecond, 30);
    EXPECT_EQ(labPTime.Caption, "00:30");
    SeekToSecond(-5);
    EXPECT_EQ(SessionTick, 1);
    SeekToSecond(1000);
    EXPECT_EQ(SessionTick, 100);
    EXPECT_EQ(AnalysisSecond, 100);
    timReplay.Enabled = true;
    PressEcgPanel();
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(labStatus.Caption, "noname<135>");
}

} // namespace
} // namespace pulselark
