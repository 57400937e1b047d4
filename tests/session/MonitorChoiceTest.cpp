#include "session/MonitorChoice.h"

#include "persistence/AppSettings.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionTimers.h"
#include "session/SettingsActions.h"
#include "session/StartUp.h"
#include "support/SessionTest.h"

namespace pulselark {
namespace {

class MonitorChoiceTest : public SessionTest {
protected:
    MonitorChoiceTest() { InstallTimerHandlers(); }
};

TEST_F(MonitorChoiceTest, APressStoresTheFamilyAndShowsIt) {
    OpenMonitorChooser();
    EXPECT_EQ(labS.Caption, "<430>");
    EXPECT_FALSE(labOK.Visible);
    PressDsu(0, false);
    EXPECT_EQ(MonitorName, "C2PP");
    EXPECT_EQ(labS.Caption, "C2PP");
    EXPECT_TRUE(labOK.Visible);
    PressDsu(0, true);
    EXPECT_EQ(MonitorName, "C2");
    PressDsu(1, true);
    EXPECT_EQ(MonitorName, "Vilistus");
    for (std::size_t i = 0; i < PlainMonitors.size(); ++i) {
        PressPlainMonitor(static_cast<int>(i));
        EXPECT_EQ(MonitorName, PlainMonitors[i].Name);
        EXPECT_TRUE(labOK.Visible);
    }
}

TEST_F(MonitorChoiceTest, ThePlaceThatIsFreeIsSpokenOfForAMoment) {
    OpenMonitorChooser();
    PressDsu(1, false);
    PressDsu(2, false);
    EXPECT_EQ(MonitorName, "Not available");
    EXPECT_EQ(labS.Caption, "<431>");
    EXPECT_FALSE(labOK.Visible);
    Timers.Advance(1499);
    EXPECT_EQ(labS.Caption, "<431>");
    Timers.Advance(1);
    EXPECT_EQ(labS.Caption, "<430>");
    EXPECT_EQ(MonitorName, "Not available") << "until another press";
    EXPECT_FALSE(MonitorChosen());
    // A press within the moment ends it.
    PressDsu(2, false);
    PressDsu(0, false);
    Timers.Advance(2000);
    EXPECT_EQ(labS.Caption, "C2PP");
    EXPECT_TRUE(labOK.Visible);
}

TEST_F(MonitorChoiceTest, ThePointerLightsOnePicture) {
    PointAtDsu(1);
    EXPECT_TRUE(!picSelect[0].Visible && picSelect[1].Visible && !picSelect[2].Visible);
    PointAtDsu(0);
    EXPECT_TRUE(picSelect[0].Visible && !picSelect[1].Visible);
    PointAtDsu(-1);
    EXPECT_FALSE(picSelect[0].Visible);
}

TEST_F(MonitorChoiceTest, WhileARecordingRunsNothingIsChosen) {
    PressDsu(1, false);
    SessionRunning = On;
    PressDsu(0, false);
    PressPlainMonitor(0);
    RunSettingAction(ActionSelectMonitor);
    EXPECT_EQ(MonitorName, "Vilistus");
    EXPECT_EQ(ChooserOpen, Off);
}

TEST_F(MonitorChoiceTest, TheFirstStartEndsInTheChooser) {
    const auto start = [this] {
        InitApplication(false);
        BeginStartUp(true);
        Timers.Advance(5000);
    };
    start();
    EXPECT_EQ(ChooserOpen, On);
    InitApplication(false);
    FinishStartUp(); // nobody is there
    EXPECT_EQ(ChooserOpen, Off);
    InitApplication(false);
    MonitorName = "Simulated ECG";
    BeginStartUp(true);
    Timers.Advance(5000);
    EXPECT_EQ(ChooserOpen, Off);
}

// Keeps what it is told, and can fail.
class Recorder final : public EcgMonitors {
public:
    Integer Failure = 0;
    int Kept = 0;
    std::string Set;
    EcgMonitor* Find(const std::string& /*name*/) override { return nullptr; }
    bool SetOption(const std::string& name, const std::string& key, const std::string& value) override {
        Set = name + "." + key + "=" + value;
        return true;
    }
    Integer KeepOptions() override {
        ++Kept;
        return Failure;
    }
};

TEST_F(MonitorChoiceTest, OptionsAreKeptWhenTheChooserCloses) {
    Recorder monitors;
    const Platform& old = ThePlatform();
    const Platform with{.Clock = old.Clock,
                        .Files = old.Files,
                        .FileDialogs = old.FileDialogs,
                        .Messages = old.Messages,
                        .MessageLoop = old.MessageLoop,
                        .Progress = old.Progress,
                        .PartnerTransport = old.PartnerTransport,
                        .ProgramLauncher = old.ProgramLauncher,
                        .EcgMonitors = monitors};
    InstallPlatform(with);
    OpenMonitorChooser();
    Outside.Dialogs.Answers = {std::nullopt, "/s/one.hti"};
    ChooseReplayFile();
    EXPECT_EQ(monitors.Set, "");
    ChooseReplayFile();
    EXPECT_EQ(monitors.Set, "Replay file.file=/s/one.hti");
    CloseMonitorChooser();
    CloseMonitorChooser();
    EXPECT_EQ(monitors.Kept, 1);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    monitors.Failure = FailureDiskFull;
    OpenMonitorChooser();
    CloseMonitorChooser();
    ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "<261>61");
    InstallPlatform(old);
}

TEST_F(MonitorChoiceTest, EveryWordOfAMonitorHasItsText) {
    EXPECT_EQ(TextOfMonitorWord(MonitorWord::NoLibrary), "<448>");
    EXPECT_EQ(TextOfMonitorWord(MonitorWord::StateOk), "<432>");
    EXPECT_EQ(TextOfMonitorWord(MonitorWord::Version), "<439>");
    TellPortRefused(-9);
    EXPECT_EQ(Outside.Boxes.Shown.at(0).Text, "<440>-9");
    SessionRunning = On; // sought again: a box would hold the recording
    TellPortRefused(-9);
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_EQ(labStatus.Caption, "<440>-9");
}

} // namespace
} // namespace pulselark
