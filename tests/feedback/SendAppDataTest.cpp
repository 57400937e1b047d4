#include "feedback/SendAppData.h"

#include "analysis/ColourSchemes.h"
#include "feedback/PartnerTools.h"
#include "feedback/Scenery.h"
#include "feedback/ShellMod.h"
#include "persistence/ConfigFile.h"
#include "persistence/Configuration.h"
#include "persistence/OpenSession.h"
#include "persistence/SaveSession.h"
#include "persistence/SessionFile.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/SessionTick.h"
#include "session/SessionTimers.h"
#include "session/Settings.h"
#include "session/SettingsActions.h"
#include "session/ShutDown.h"
#include "support/Heard.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

class Link : public SessionTest {
protected:
    Link() {
        InstallTimerHandlers();
        timLoadingProgress.Enabled = false;
    }

    std::string Heard() { return pulselark::Heard(Outside.Partners); }
};

// The Doubles' bytes are worked out by hand: 87654321 is 0x5397FB1, so 0x4194E5FEC4000000, and so on.
TEST_F(Link, PayloadsAreTheBytesOfTheFormat) {
    SendAppCommand(CmdSceneRect, 1, -2, 0.5, 7.5);
    AnalysisSecond = 20;
    CoherenceA[20] = 0.055F;
    CoherenceA[21] = 99; // the place where second 20 is stored; the link does not look there
    SendCoherenceValue();
    ASSERT_EQ(Outside.Partners.Sent.size(), 2U);
    EXPECT_EQ(Hex(Outside.Partners.Sent[0].Payload), "000000c4fee59441" // 87654321
                                                     "00000000300ffe40"
                                                     "000000000000f03f"
                                                     "00000000000000c0"
                                                     "000000000000e03f"
                                                     "0000000000001e40");
    const auto& value = Outside.Partners.Sent[1].Payload;
    EXPECT_EQ(value.size(), 16U);
    EXPECT_EQ(Hex({value.begin(), value.begin() + 8}), "000000c0298c6741"); // 12345678
    EXPECT_NEAR(DoubleAt(value, 1), 50, 1e-5);
}

TEST_F(Link, ArraysAreTheNewestRowAndTheHeartRatesSpectrum) {
    SpectrumSlotA = 7;
    for (int bin = 1; bin <= 512; ++bin)
        SpectrumAvgA[7][bin] = static_cast<float>(bin) + 0.1F;
    for (int bin = 1; bin <= 128; ++bin)
        HrvPowerA[bin] = static_cast<float>(-bin);
    for (const int kind : {0, 1, 2})
        SendAppArray(kind);
    ASSERT_EQ(Outside.Partners.Sent.size(), 2U);
    const auto& spectrum = Outside.Partners.Sent[0].Payload;
    const auto& heartRate = Outside.Partners.Sent[1].Payload;
    ASSERT_EQ(spectrum.size(), 2056U);
    ASSERT_EQ(heartRate.size(), 1032U);
    EXPECT_EQ(DoubleAt(spectrum, 0), 89898989);
    EXPECT_EQ(DoubleAt(spectrum, 1), 0);
    EXPECT_EQ(DoubleAt(spectrum, 2), double{1.1F});
    EXPECT_EQ(DoubleAt(spectrum, 256), double{255.1F});
    EXPECT_EQ(DoubleAt(heartRate, 1), 1);
    EXPECT_EQ(DoubleAt(heartRate, 2), -1);
    EXPECT_EQ(DoubleAt(heartRate, 128), -127);
}

TEST_F(Link, EachModeSendsItsOwnNumber) {
    AnalysisSecond = 30;
    IbiAvgA[30] = 70;
    CoherenceA[30] = 0.25F;
    DynamicIndex = 64;
    for (const double mode : {-1, 0, 1, 2, 3}) {
        FeedbackMode = mode;
        SendFeedbackValue();
    }
    EXPECT_EQ(Heard(), "=70 =227 =64");
}

TEST_F(Link, ASecondGoesToTheTidalViewInItsOrder) {
    MakeSession(60);
    StartTidalView();
    ASSERT_EQ(Outside.Programs.Started.size(), 1U);
    EXPECT_EQ(Outside.Programs.Started[0].File, "TidalRun.exe");
    SessionTick = 20;
    RunSessionTick();
    ASSERT_EQ(Outside.Partners.Sent.size(), 4U);
    EXPECT_EQ(Outside.Partners.Sent[0].Title, "TidalRunner");
    EXPECT_NEAR(DoubleAt(Outside.Partners.Sent[3].Payload, 1), double{CoherenceA[20]} / 0.11 * 100, 1e-5);
    Outside.Partners.Sent.resize(3);
    EXPECT_EQ(Heard(), "243:20 [127] [255]");
    LeaveTidalView();
    EXPECT_EQ(AppLinkOnly, Off);
    EXPECT_EQ(Heard(), "227");
}

TEST_F(Link, AToolThatCannotStartIsTold) {
    Outside.Programs.Result = 2;
    StartTidalView();
    StartBreathingTool();
    EXPECT_EQ(AppLinkOnly, Off); // the panels stay
    EXPECT_FALSE(timStartRYB.Enabled);
    ASSERT_EQ(Outside.Boxes.Shown.size(), 2U);
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "TidalRun.exe: <471> (53)");
}

TEST_F(Link, TheBreathingToolHearsHowThingsStoodUnderTheLastTitle) {
    LinkWindowTitle = "WideFeedback";
    ColourSchemeIndex = 3;
    StartBreathingTool();
    FeedbackEnabled = Off;
    Timers.Advance(1999);
    EXPECT_EQ(Heard(), "");
    Timers.Advance(1);
    ASSERT_EQ(Outside.Partners.Sent.size(), 2U);
    EXPECT_EQ(Outside.Partners.Sent[0].Title, "WideFeedback");
    EXPECT_EQ(Heard(), "999 503");
    StartBreathingTool();
    SetColourScheme(1);
    SetColourScheme(5); // there is none
    Timers.Advance(5000);
    EXPECT_EQ(Heard(), "501 123 503");
}

TEST_F(Link, FailuresOfTheShellHaveNumbersAndTexts) {
    using Row = std::tuple<int, int, int>; // result, number, text
    for (const auto& [result, number, text] : {Row{0, 7, 470},
                                               {8, 7, 470},
                                               {2, 53, 471},
                                               {3, 76, 472},
                                               {5, 75, 473},
                                               {11, 0, 474},
                                               {26, 75, 475},
                                               {27, 0, 476},
                                               {28, 286, 477},
                                               {29, 285, 478},
                                               {30, 285, 479},
                                               {31, 0, 480},
                                               {32, 48, 481},
                                               {7, 0, 482}}) {
        Outside.Programs.Result = result;
        const ShellOutcome outcome = ShellExecuteChecked("a.exe", 1, "", "", "open");
        EXPECT_TRUE(outcome.Failed) << result;
        EXPECT_EQ(outcome.Number, number) << result;
        EXPECT_EQ(outcome.Description, "<" + std::to_string(text) + ">") << result;
    }
    Outside.Programs.Result = 33;
    EXPECT_FALSE(ShellExecuteChecked("a.exe", 10, "", "", "open").Failed);
    EXPECT_EQ(Outside.Programs.Started.back().ShowCommand, 1);
    ShellExecuteChecked("a.Exe", 10, "-x", "", "open");
    EXPECT_EQ(Outside.Programs.Started.back().ShowCommand, 0);
    ShellExecuteChecked("page.html", 10, "", "/", "open");
    EXPECT_EQ(Outside.Programs.Started.back().ShowCommand, 10);
}

TEST_F(Link, TheSceneryIsToldHowThingsStandOnceItIsUp) {
    FeedbackMode = 2;
    BreathingBalance = 4; // out of the settings
    StartWideFeedback();
    EXPECT_EQ(Outside.Programs.Started.back().File, "WideFB.exe");
    EXPECT_EQ(SceneryOpen, On);
    EXPECT_EQ(Heard(), "");
    Timers.Advance(3500);
    const auto first = Outside.Partners.Sent.front().Payload;
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(DoubleAt(first, 2 + i), SceneRect[i]);
    EXPECT_GT(SceneRect[2], 100);
    EXPECT_TRUE(Heard().ends_with("222:2 223 228:7 231 232:4"));
    EXPECT_EQ(labRestoreGame.Caption, "<377>");
    Timers.Advance(5000);
    EXPECT_EQ(labRestoreGame.Caption, "<379>");
    ClickRestoreGame();
    EXPECT_EQ(labRestoreGame.Caption, "<378>");
    Timers.Advance(4999);
    EXPECT_EQ(labRestoreGame.Caption, "<377>"); // told anew after 3.5 s, so the five seconds ran again
    RefuseSceneryChoice();
    EXPECT_EQ(labRestoreGame.Caption, "<380>");
    Timers.Advance(2000);
    EXPECT_EQ(labRestoreGame.Caption, "<379>");
}

TEST_F(Link, ThePacerRunsInTheScenerySetUpOfTheStillModesOnly) {
    const auto told = [this](double mode, bool running) {
        FeedbackMode = mode;
        ModeRunning.fill(Off);
        if (mode >= 0)
            ModeRunning.at(static_cast<std::size_t>(mode)) = ToBoolean(running);
        SendSceneryState(true);
        return Heard();
    };
    EXPECT_EQ(told(0, true), "233 222 223 228:7 230");
    EXPECT_EQ(told(1, true), "233 222:1 223 228:7 230");
    EXPECT_EQ(told(1, false), "233 222:1 223 228:7 231");
    EXPECT_EQ(told(3, true), "233 222:3 223 228:7 231");
    EXPECT_EQ(told(-1, false), "233 222:-1 223 228:7");
}

TEST_F(Link, ClosingTheSceneryIsKnownWhetherOrNotItIsHeard) {
    SceneryOpen = On;
    Outside.Partners.Found = false;
    SendAppCommand(CmdStopScroll);
    EXPECT_EQ(SceneryOpen, On);
    SendAppCommand(CmdCloseScenery);
    EXPECT_EQ(SceneryOpen, Off);
}

TEST_F(Link, ATrainingSessionFromLoadToExit) {
    MakeSession(30);
    Outside.Disk.Content["s.hti"] = SessionText();
    TrainingActive = On;
    OpenSessionFile("s.hti");
    EXPECT_EQ(Heard(), "226 240 231 222:2 223 238 222:2 225");
    EXPECT_TRUE(picRestoreGame.Visible);
    Timers.Advance(2000);
    EXPECT_EQ(Heard(), "=0 225 =49"); // the values of two seconds, the scroll between
    ReleaseReplayButton(RightButton); // stops
    EXPECT_EQ(Heard(), "226");
    ReleaseReplayButton(LeftButton); // in time lapse; the late stop of the scenery is overtaken
    Timers.Advance(2000);
    EXPECT_EQ(Heard(), "237 222:2 225");
    ReleaseStopButton();
    Timers.Advance(2000);
    EXPECT_EQ(Heard(), "226 226");

    SaveSessionFromMenu(); // nothing to save
    EXPECT_EQ(Heard(), "");
    SessionUnsaved = On;
    Outside.Dialogs.WhileOpen = [this] { EXPECT_EQ(Heard(), "239"); };
    SaveSessionFromMenu(); // cancelled
    EXPECT_EQ(Heard(), "240");
    Outside.Dialogs.WhileOpen = nullptr;
    Outside.Dialogs.Answers = {"t.hti"};
    SaveSessionFromMenu();
    EXPECT_EQ(Heard(), "239 240");
    EXPECT_TRUE(ExitProgram());
    EXPECT_EQ(Heard(), "227");
    TrainingActive = Off;
    AppLinkOnly = On;
    EXPECT_TRUE(ExitProgram());
    EXPECT_EQ(Heard(), "321 227");
}

TEST_F(Link, AConfigurationInTrainingStartsTheScenery) {
    TrainingActive = On;
    LoadConfig(PreviousConfig);
    ASSERT_EQ(Outside.Programs.Started.size(), 1U);
    EXPECT_EQ(LinkWindowTitle, "WideFeedback");
    EXPECT_EQ(Heard(), "240");
    picRestoreGame.Visible = picGamePassive.Visible = true;
    Outside.Disk.Content["config/defConfig.htc"] = ConfigText();
    LoadConfig(DefaultConfig);
    EXPECT_EQ(TrainingActive, Off);
    EXPECT_FALSE(picRestoreGame.Visible || picGamePassive.Visible);
    EXPECT_EQ(Outside.Programs.Started.size(), 1U);
}

} // namespace
} // namespace pulselark
