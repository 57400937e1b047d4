#include "feedback/FeedbackModes.h"
#include "feedback/ModeSelector.h"
#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "session/Connection.h"
#include "session/SessionButtons.h"
#include "session/Training.h"
#include "support/Heard.h"
#include "support/LiveTest.h"

#include <algorithm>

namespace pulselark {
namespace {

/// The training view, fed by the monitor.
class LiveTraining : public LiveTest {
protected:
    LiveTraining() {
        TrainingActive = On;
        RefreshSessionButtons(true);
        ChooseTrainingSource(false);
        Monitor().Period = 0.85;
        pulselark::Heard(Outside.Partners);
    }
    std::string Click(int index) {
        ClickModeButton(index, LeftButton);
        return pulselark::Heard(Outside.Partners);
    }
    std::string After(std::int64_t milliseconds) {
        Timers.Advance(milliseconds);
        return pulselark::Heard(Outside.Partners);
    }
    static std::ptrdiff_t Values(const std::string& heard) {
        return std::count(heard.begin(), heard.end(), '=');
    }
};

TEST_F(LiveTraining, ALevelStartsARecordingAndASecondClickEndsIt) {
    EXPECT_EQ(Click(2), "123123 222:2 223 228:7 231 225");
    EXPECT_NE(SessionRunning, Off);
    EXPECT_EQ(picStartSmp.Frame, 2);     // the training's own strip: lit
    EXPECT_EQ(Values(After(20500)), 20); // a value each second
    EXPECT_FALSE(labBFStart.Visible);
    EXPECT_EQ(RecordedSeconds, 20);
    EXPECT_EQ(Click(2), "231 226"); // no replay was there to stop
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(picStartSmp.Frame, 1);
    EXPECT_EQ(labStatus.Caption, "noname<134>");
    EXPECT_EQ(ModeShown, -1);
    Timers.Advance(1100);
    EXPECT_EQ(Monitor().Closes, 1);
}

TEST_F(LiveTraining, ScoresAreThoseOfTheStoredSession) {
    Monitor().Period = 1;
    DynamicIndexInterval = 16;
    Click(3);
    Timers.Advance(90500);
    const double score = SessionScore, index = DynamicIndex;
    Click(3);
    AnalysisSecond = RecordedSeconds;
    SessionScore = DynamicIndex = -1;
    TickTraining();
    EXPECT_EQ(SessionScore, score);
    EXPECT_EQ(DynamicIndex, index);
    EXPECT_NE(labDI[1].Caption, "");
}

TEST_F(LiveTraining, FromLevelToLevelTheRecordingGoesOnAndThePacerEndsIt) {
    Click(1);
    EXPECT_NE(SessionRunning, Off);
    Timers.Advance(10500);
    Click(3);
    Timers.Advance(10000);
    EXPECT_EQ(RecordedSeconds, 20);
    EXPECT_EQ(FeedbackMode, 3);
    EXPECT_TRUE(Outside.Boxes.Shown.empty()); // its own data are nobody's unsaved session
    Click(0);                                 // ends the level
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(ModeShown, -1);
    Outside.Boxes.Answers = {ButtonNo};
    Click(0); // the pacer alone records nothing
    EXPECT_EQ(ModeShown, 0);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
}

TEST_F(LiveTraining, TheRecordButtonDoesNothingHere) {
    Press();
    EXPECT_EQ(SessionRunning, Off);
    Click(2);
    Press();
    Timers.Advance(1000);
    EXPECT_NE(SessionRunning, Off);
}

TEST_F(LiveTraining, ALevelWithoutAMonitorDoesNotRun) {
    Monitor().Opens = false;
    Click(2);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(ModeShown, -1);
    EXPECT_EQ(ModeRunning[2], Off);
    EXPECT_EQ(labStatus.Caption, "<333>fake: no sensor");
}

TEST_F(LiveTraining, ALossHoldsSceneryScoreAndMusic) {
    PlayList[1] = "song.ogg";
    AutoPlayMusic = On;
    Outside.Player.Length = 600;
    Click(2);
    EXPECT_NE(Playing, Off);
    After(30500);
    const double score = SessionScore;
    Monitor().Connected = false;
    EXPECT_EQ(After(2000), "226"); // it does not scroll, and no value moves it
    Timers.Advance(10000);
    EXPECT_EQ(Playing, Off); // died away
    EXPECT_FALSE(Outside.Player.Runs);
    EXPECT_EQ(SessionScore, score);
    Monitor().Connected = true;
    const std::string heard = After(5000);
    EXPECT_TRUE(heard.starts_with("225")) << heard;
    EXPECT_NEAR(static_cast<double>(Values(heard)), 5, 1);
    EXPECT_NE(Playing, Off);
    EXPECT_EQ(Outside.Player.Volume, PlayerVolume);
}

TEST_F(LiveTraining, ARecordingGoesOnWhenTheViewIsLeftAndEntered) {
    PlayList[1] = "song.ogg";
    AutoPlayMusic = On;
    Outside.Player.Length = 600;
    Click(2);
    After(20500);
    Monitor().Connected = false;
    After(3000);
    LeaveTraining();
    EXPECT_EQ(TrainingActive, Off);
    EXPECT_EQ(pulselark::Heard(Outside.Partners).substr(0, 3), "227");
    Monitor().Connected = true;
    EXPECT_EQ(Values(After(5000)), 0);
    EXPECT_EQ(Playing, Off); // music belongs to the view
    EXPECT_NE(SessionRunning, Off);
    FeedbackEnabled = On; // the source of the training before
    EnterTraining();
    EXPECT_EQ(FeedbackEnabled, Off);
    Outside.Boxes.Shown.clear();
    Click(3);
    EXPECT_TRUE(Outside.Boxes.Shown.empty()); // nothing is dropped
    EXPECT_EQ(Values(After(5000)), 5);
    EXPECT_EQ(RecordedSeconds, 33);
    Click(3);
    Timers.Advance(20);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(SessionSeconds, 33);
}

TEST_F(LiveTraining, ALevelContinuesARecordingInItsPause) {
    LeaveTraining();
    AllowMultiSessions = On;
    RecordAndStop(20);
    ASSERT_NE(SessionPaused, Off);
    EnterTraining();
    Outside.Boxes.Shown.clear();
    Click(2);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    Timers.Advance(10500);
    EXPECT_EQ(RecordedSeconds, 20 + PauseGapSeconds + 10);
    EXPECT_EQ(SessionPaused, Off);
}

TEST_F(LiveTraining, ARecordingThatEndsByItselfEndsTheLevel) {
    AutoEndSession = On;
    Click(2);
    Timers.Advance(272000);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(ModeShown, -1);
    EXPECT_TRUE(timStopScrollGame.Enabled);
}

} // namespace
} // namespace pulselark
