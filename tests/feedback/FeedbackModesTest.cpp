#include "feedback/FeedbackModes.h"

#include "feedback/ModeSelector.h"
#include "feedback/WMPPlay.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/Settings.h"
#include "session/Training.h"
#include "support/Heard.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

class Modes : public SessionTest {
protected:
    Modes() {
        MakeSession(60);
        TrainingActive = On;
    }
    std::string Click(int index, MouseButton button = LeftButton) {
        ClickModeButton(index, button);
        return pulselark::Heard(Outside.Partners);
    }
    // Level shown as running, level in use, and which run.
    std::string State() const {
        std::string text =
            std::to_string(ModeShown) + " " + std::to_string(static_cast<int>(FeedbackMode)) + " ";
        for (const Boolean runs : ModeRunning)
            text += runs != Off ? '1' : '0';
        return text;
    }
};

TEST_F(Modes, ACoherenceLevelSetsTheSceneryUpAndLetsItScroll) {
    EXPECT_EQ(Click(2), "123123 222:2 223 228:7 231 225");
    EXPECT_EQ(State(), "2 2 0010");
    EXPECT_EQ(LastMode, 2);
    EXPECT_EQ(Click(3), "123123 222:3 223 228:7 231 225"); // from level to level
    EXPECT_EQ(State(), "3 3 0001");
    EXPECT_EQ(Click(3), "231 226 226"); // a second click stops it, and with it the session's feedback
    EXPECT_EQ(State(), "-1 3 0000");
    EXPECT_EQ(LastModeIndex, -1);
    EXPECT_TRUE(timStopScrollGame.Enabled);
    EXPECT_EQ(Click(2), "123123 222:2 223 228:7 231 225");
    EXPECT_FALSE(timStopScrollGame.Enabled); // it would have stopped the new one
}

TEST_F(Modes, ThePacersLevelsTurnThePacerOn) {
    EXPECT_EQ(Click(1), "230 123123 222:1 223 228:7 230 226");
    EXPECT_EQ(State(), "1 1 0100");
    EXPECT_EQ(Click(0), "231 226 226"); // the pacer's click ends another level first,
    EXPECT_EQ(State(), "-1 0 0000");
    EXPECT_EQ(Click(0), "230 123123 222 223 228:7 230 226 226"); // and starts the pacer then
    EXPECT_EQ(State(), "0 0 1000");
    EXPECT_EQ(Click(0), "231 226 226");
}

TEST_F(Modes, AReplayTakesThePacersPlace) {
    Click(0);
    EXPECT_EQ(State(), "0 0 1000");
    ReleaseReplayButton(RightButton);
    EXPECT_EQ(State(), "2 2 0010"); // one level runs, not two
    EXPECT_EQ(pulselark::Heard(Outside.Partners), "231 238 222:2 225");
}

TEST_F(Modes, SceneryAndMusicLeaveTheModesAlone) {
    Click(2);
    EXPECT_EQ(Click(4), "233 222:2 223 228:7 231");
    EXPECT_EQ(Click(5), "");
    EXPECT_NE(PlayerPanelOpen, Off);
    EXPECT_EQ(State(), "2 2 0010");
}

TEST_F(Modes, TheRightButtonOnlyChoosesAndOnlyWithoutASource) {
    EXPECT_EQ(Click(1, RightButton), "");
    EXPECT_EQ(State(), "-1 -1 0000");
    FeedbackEnabled = Off;
    timProcess.Enabled = true;
    EXPECT_EQ(Click(1, RightButton), "");
    timProcess.Enabled = false;
    timReplay.Enabled = true;
    EXPECT_EQ(Click(1, RightButton), ""); // neither set-up nor scrolling
    EXPECT_EQ(FeedbackMode, 1);
    EXPECT_TRUE(timReplay.Enabled);
    EXPECT_EQ(Click(0, RightButton), "231");
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(State(), "-1 0 0000");
}

TEST_F(Modes, AnUnsavedSessionIsAskedAboutBeforeALevelStarts) {
    SessionUnsaved = On;
    Outside.Boxes.Answers = {ButtonCancel};
    EXPECT_EQ(Click(2), "");
    EXPECT_EQ(State(), "-1 2 0000");
    ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "<253>");
    EXPECT_EQ(Outside.Boxes.Shown[0].Buttons, ButtonYes | ButtonNo | ButtonCancel);

    Outside.Boxes.Answers = {ButtonYes}; // and the dialog is cancelled
    EXPECT_EQ(Click(2), "239 240");
    EXPECT_EQ(State(), "-1 2 0000");
    EXPECT_NE(SessionUnsaved, Off);

    Outside.Boxes.Answers = {ButtonYes};
    Outside.Dialogs.Answers = {"kept.hti"};
    EXPECT_EQ(Click(2), "239 240 123123 222:2 223 228:7 231 225");
    EXPECT_EQ(SessionUnsaved, Off);
    EXPECT_EQ(Outside.Disk.Content.count("kept.hti"), 1U);

    SessionUnsaved = On;
    Outside.Boxes.Answers = {ButtonNo};
    EXPECT_EQ(Click(3), "123123 222:3 223 228:7 231 225");
    EXPECT_EQ(SessionUnsaved, Off);
    SessionUnsaved = On;
    EXPECT_EQ(Click(0), "231 226 226"); // the pacer records nothing
    EXPECT_TRUE(Outside.Boxes.Answers.empty());
    EXPECT_EQ(Outside.Boxes.Shown.size(), 4U);
}

TEST_F(Modes, TheSourceSwitchSetsTheTipsAndEndsWhatRuns) {
    SetModeTips();
    EXPECT_EQ(imBFCTips[1], "<351><354>");
    Click(2);
    timReplay.Enabled = true;
    ChooseTrainingSource(true); // it is already
    EXPECT_TRUE(timReplay.Enabled);
    ChooseTrainingSource(false);
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(State(), "-1 2 0000");
    EXPECT_EQ(FeedbackEnabled, Off);
    EXPECT_EQ(imBFCTips[0], "<350><354>"); // the pacer's is the same
    EXPECT_EQ(imBFCTips[3], "<353><354><355>");
    SessionRunning = On;
    ChooseTrainingSource(true);
    EXPECT_EQ(FeedbackEnabled, Off);
}

TEST_F(Modes, TheTrainingIsEnteredAndLeft) {
    TrainingActive = Off;
    EnterTraining();
    EXPECT_NE(TrainingActive, Off);
    ASSERT_EQ(Outside.Programs.Started.size(), 1U);
    EXPECT_EQ(Outside.Programs.Started[0].File, "WideFB.exe");
    EXPECT_TRUE(picRestoreGame.Visible);
    Click(3);
    LeaveTraining();
    EXPECT_EQ(TrainingActive, Off);
    EXPECT_EQ(State(), "-1 3 0000");
    EXPECT_FALSE(picRestoreGame.Visible);
    EXPECT_EQ(pulselark::Heard(Outside.Partners), "227");
}

TEST_F(Modes, TheEndOfASessionEndsItsLevel) {
    Click(2);
    SessionTick = 59;
    timReplay.Enabled = true;
    ReplayTick();
    EXPECT_EQ(State(), "2 2 0010");
    ReplayTick();
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(State(), "-1 2 0000");
}

} // namespace
} // namespace pulselark
