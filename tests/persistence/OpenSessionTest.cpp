#include "persistence/OpenSession.h"

#include "persistence/SessionFile.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/ReportDocument.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

constexpr int YesNoCancel = ButtonYes | ButtonNo | ButtonCancel;

class Opening : public SessionTest {
protected:
    Opening() {
        MakeSession(30, 5);
        ChannelMode = 1;
        ChannelBPresent = On;
        SessionInfo[0] = "stored";
        Outside.Disk.Content["a.hti"] = SessionText();
        PutEverythingBack();
    }

    // A session in the buffers that no file has.
    void HaveUnsaved(Long seconds) {
        MakeSession(seconds);
        ClearReportFields();
        SessionInfo[0] = tbSD[0].Text = "unsaved";
        SessionUnsaved = On;
    }
    bool Opened() const { return SessionInfo[0] == "stored"; }
};

TEST_F(Opening, ASessionIsReadRescannedAndPlays) {
    RecordingSurface panel(578, 200);
    picIA = &panel;
    TimeLapseReplay = QuickScanResultShown = On;
    timReplay.Interval = 37500;
    SessionTick = 17;
    LastOpenFolder = "folder";
    Outside.Dialogs.Answers = {"a.hti"};
    Outside.Dialogs.WhileOpen = [] { EXPECT_EQ(DialogOpen, On); };
    OpenSessionFromMenu();
    EXPECT_EQ(Outside.Dialogs.Starts, std::vector<std::string>{"folder"});
    EXPECT_EQ(DialogOpen, Off);
    EXPECT_TRUE(Opened());
    EXPECT_EQ(LastFileResult, FileSuccess);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(Outside.Bar.Captions, (std::vector<std::string>{"loading..", "scanning.."}));
    EXPECT_EQ(SessionName + LastSessionFile + LastOpenFolder, "a.htia.htia.hti");
    EXPECT_EQ(labStatus.Caption, "a.hti<132>");
    EXPECT_EQ(SessionSeconds, 30);
    EXPECT_EQ(RecordedSeconds, 30);
    EXPECT_EQ(SessionTick, 1);
    EXPECT_EQ(ChannelBPresent, On);
    EXPECT_EQ(labChannelMode.Caption, "<152>");
    EXPECT_EQ(labBPMA.Caption, "<155>: 0 ");
    EXPECT_EQ(labQSMenu[0].Caption, "<126>");
    EXPECT_EQ(SessionUnsaved | QuickScanResultShown | TimeLapseReplay, Off);
    EXPECT_GT(CoherenceA[31], 0);
    EXPECT_TRUE(timReplay.Enabled);
    EXPECT_EQ(picReplay.Frame, FrameReplayRunning);
    EXPECT_FALSE(panel.Traces.empty());
    Timers.Advance(3000);
    EXPECT_EQ(SessionTick, 4);
}

TEST_F(Opening, NothingMovesWhileAFileIsRead) {
    MakeSession(400);
    Outside.Disk.Content["b.hti"] = SessionText();
    Outside.Time.PerReading = 20;
    int within = 0;
    Outside.Loop.OnYield = [&] {
        if (LoadingSession == Off)
            return;
        ++within;
        EXPECT_EQ(Outside.Bar.Visible, 1);
        EXPECT_FALSE(timReplay.Enabled);
        EXPECT_EQ(labStatus.Caption, "<148>b.hti");
        OpenSessionFromMenu(); // a second one must wait
    };
    OpenSessionFile("b.hti");
    EXPECT_GT(within, 10);
    EXPECT_TRUE(Outside.Dialogs.Starts.empty());
    EXPECT_EQ(LastFileResult, FileSuccess);
    EXPECT_EQ(Outside.Bar.Visible, 0);
}

TEST_F(Opening, ModesSetTheSecondChannel) {
    const std::string two = Outside.Disk.Content["a.hti"];
    for (const auto& [mode, before, after] :
         {std::tuple{'1', Off, On}, {'2', On, Off}, {'3', On, On}, {'3', Off, Off}}) {
        std::string text = two;
        text[text.find("30\r\n") + 4] = mode;
        Outside.Disk.Content["a.hti"] = text;
        ChannelMode = 3;
        ChannelBPresent = before;
        OpenSessionFile("a.hti");
        EXPECT_EQ(ChannelBPresent, after) << mode;
        EXPECT_EQ(labChannelMode.Caption, std::string("<") + std::to_string(151 + (mode - '0')) + ">");
    }
}

TEST_F(Opening, ARunningRecordingOrABusySessionRefuses) {
    Outside.Dialogs.Answers = {"a.hti"};
    SessionRunning = On;
    OpenSessionFromMenu();
    OpenNamedSessionFromMenu("a.hti");
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>(2, {"<176>", ButtonOK})));
    SessionRunning = Off;
    for (Boolean* busy : {&LoadingSession, &SavingSession, &Rescanning}) {
        *busy = On;
        OpenSessionFromMenu();
        OpenNamedSessionFromMenu("a.hti");
        *busy = Off;
    }
    EXPECT_TRUE(Outside.Dialogs.Starts.empty());
    EXPECT_FALSE(Opened());
}

TEST_F(Opening, SeventeenUnsavedSecondsAreAskedAbout) {
    HaveUnsaved(16);
    OpenNamedSessionFromMenu("a.hti"); // not worth a question
    EXPECT_TRUE(Opened() && Outside.Boxes.Shown.empty());

    const auto opens = [&](int answer, const std::optional<std::string>& saveAs, Integer writeFailure) {
        HaveUnsaved(17);
        Outside.Disk.Content.erase("s.hti");
        Outside.Boxes.Shown.clear();
        Outside.Boxes.Answers = {answer};
        Outside.Disk.WriteFailure = writeFailure;
        Outside.Dialogs.Answers = {saveAs};
        OpenNamedSessionFromMenu("a.hti");
        EXPECT_EQ(Outside.Boxes.Shown.at(0), (FakeMessages::Message{"<175>", YesNoCancel}));
        EXPECT_EQ(Outside.Boxes.Manners.back().Destructive, writeFailure == 0 ? ButtonNo : 0);
        EXPECT_EQ(SessionUnsaved, ToBoolean(!Opened()));
        return Opened();
    };
    EXPECT_FALSE(opens(ButtonCancel, {}, 0));
    EXPECT_TRUE(opens(ButtonNo, {}, 0));
    EXPECT_FALSE(opens(ButtonYes, {}, 0)); // the save dialog is cancelled
    EXPECT_FALSE(opens(ButtonYes, "s.hti", 61));
    EXPECT_FALSE(Outside.Disk.Content.contains("s.hti"));
    EXPECT_TRUE(opens(ButtonYes, "s.hti", 0));
    EXPECT_TRUE(Outside.Disk.Content.contains("s.hti"));
}

TEST_F(Opening, ACancelledDialogChangesNothing) {
    HaveUnsaved(10);
    OpenSessionFromMenu();
    EXPECT_EQ(LastFileResult, 32755);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(SessionInfo[0], "unsaved");
    EXPECT_EQ(SessionUnsaved, On);
    EXPECT_EQ(SessionSeconds, 10);
}

TEST_F(Opening, AFileThatCannotBeReadLeavesTheSession) {
    HaveUnsaved(10);
    for (const Integer number : std::initializer_list<Integer>{53, 57, 70, 75, 76}) {
        Outside.Boxes.Shown.clear();
        Outside.Disk.ReadFailure = number;
        OpenNamedSessionFromMenu("gone.hti");
        EXPECT_EQ(LastFileResult, number);
        ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
        const std::string& text = Outside.Boxes.Shown[0].Text;
        EXPECT_TRUE(text.starts_with("<174>" + std::to_string(number) + "\n")) << text;
        EXPECT_NE(text.find("gone.hti"), std::string::npos);
        EXPECT_EQ(labStatus.Caption, "<139>");
        EXPECT_EQ(SessionInfo[0], "unsaved");
        EXPECT_EQ(SessionUnsaved, On);
    }
}

TEST_F(Opening, ADamagedFileIsToldWithItsLineAndIsNotPlayed) {
    OpenSessionFile("a.hti");
    std::string& bytes = Outside.Disk.Content["a.hti"];
    bytes.replace(bytes.find("\r\n", bytes.size() / 2) + 2, 1, "?");
    const auto line =
        std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(bytes.find('?')), '\n') + 1;
    OpenSessionFile("a.hti");
    EXPECT_EQ(LastFileResult, 13);
    EXPECT_EQ(LastFileLine, line);
    ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
    const std::string& text = Outside.Boxes.Shown[0].Text;
    EXPECT_TRUE(text.starts_with("<174>13\n"));
    EXPECT_EQ(Outside.Boxes.Manners[0].Kind, MessageKind::Warning);
    EXPECT_NE(text.find("a.hti, <273> " + std::to_string(line)), std::string::npos) << text;
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(LoadingSession | SessionUnsaved, Off);
    EXPECT_EQ(SessionName, "noname");
    EXPECT_EQ(SessionSeconds, 30); // of the file, until the next load
    EXPECT_EQ(labStatus.Caption, "<139>");
}

} // namespace
} // namespace pulselark
