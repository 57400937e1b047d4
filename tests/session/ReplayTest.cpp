#include "session/Replay.h"

#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionButtons.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

class Replay : public SessionTest {
protected:
    void Have(Long seconds) {
        MakeSession(seconds);
        SessionName = "name.hti";
        RefreshSessionButtons(true);
    }
};

TEST_F(Replay, FiveSecondsPlayOneToFour) {
    Have(5);
    EXPECT_EQ(picReplay.Frame, FrameReplayRest);
    StartReplay(false);
    EXPECT_EQ(labStatus.Caption, "name.hti<132>");
    EXPECT_EQ(picReplay.Frame, FrameReplayRunning);
    Timers.Advance(999);
    EXPECT_EQ(SessionTick, 1);
    for (Long second = 1; second <= 4; ++second) {
        Timers.Advance(second == 1 ? 1 : 1000);
        EXPECT_EQ(SpectrumTrack.A.LastSecond, second);
        EXPECT_TRUE(timReplay.Enabled);
    }
    Timers.Advance(1000);
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(SpectrumTrack.A.LastSecond, 4); // the last second is not processed
    EXPECT_EQ(SessionTick, 5);
    EXPECT_EQ(labStatus.Caption, "name.hti<135>");
    EXPECT_EQ(picReplay.Frame, FrameReplayRest);
}

TEST_F(Replay, FourSecondsAndRecordingsCannotBeReplayed) {
    Have(4);
    SessionTick = 3;
    ReleaseReplayButton(RightButton);
    ReleaseStopButton();
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(SessionTick, 3);
    EXPECT_EQ(picReplay.Frame, FrameReplayBlocked);
    EXPECT_EQ(picStop.Frame, FrameStopBlocked);
    Have(60);
    SessionRunning = On;
    RefreshSessionButtons(false);
    EXPECT_EQ(picReplay.Frame, FrameReplayBlocked);
    ReleaseReplayButton(RightButton);
    EXPECT_FALSE(timReplay.Enabled);
    SessionRunning = Off;
    MovieCommandsBlocked = On;
    ReleaseReplayButton(RightButton);
    EXPECT_FALSE(timReplay.Enabled);
}

TEST_F(Replay, ButtonsPlayPauseAndStop) {
    Have(60);
    ReleaseReplayButton(RightButton); // normal speed
    EXPECT_EQ(timReplay.Interval, 1000);
    Timers.Advance(7000);
    labBFStart.Visible = true;
    ReleaseReplayButton(LeftButton); // any button stops
    EXPECT_FALSE(timReplay.Enabled || labBFStart.Visible);
    EXPECT_EQ(SessionTick, 8);
    ReleaseReplayButton(RightButton); // and goes on at the same second
    Timers.Advance(2000);
    EXPECT_EQ(SessionTick, 10);
    EXPECT_EQ(SpectrumTrack.A.LastSecond, 9);
    labBFStart.Visible = true;
    ReleaseStopButton();
    EXPECT_FALSE(timReplay.Enabled || labBFStart.Visible);
    EXPECT_EQ(SessionTick, 1);
    EXPECT_EQ(picReplay.Frame, FrameReplayRest);
    EXPECT_EQ(labStatus.Caption, "name.hti<135>");
    Timers.Advance(10000);
    EXPECT_EQ(SessionTick, 1);
}

TEST_F(Replay, LeftButtonIsTimeLapseWithFeedback) {
    Have(60);
    ReleaseReplayButton(LeftButton);
    EXPECT_EQ(TimeLapseReplay, On);
    Timers.Advance(37499);
    EXPECT_EQ(SessionTick, 1);
    Timers.Advance(37501);
    EXPECT_EQ(SessionTick, 3);
    ReleaseReplayButton(LeftButton);
    FeedbackEnabled = Off;
    ReleaseReplayButton(LeftButton);
    EXPECT_EQ(TimeLapseReplay, Off);
    EXPECT_EQ(timReplay.Interval, 1000);
}

TEST_F(Replay, AWholeHourRunsThrough) {
    Have(3601);
    ChannelBPresent = On;
    StartReplay(false);
    Timers.Advance(3'600'000);
    EXPECT_EQ(SessionTick, 3601);
    EXPECT_TRUE(timReplay.Enabled);
    EXPECT_EQ(SpectrumTrack.B.LastSecond, 3600);
    EXPECT_EQ(PeakIndexA, 48);
    Timers.Advance(3'600'000);
    EXPECT_EQ(SessionTick, 3601);
    EXPECT_FALSE(timReplay.Enabled);
}

} // namespace
} // namespace pulselark
