#include "session/Recording.h"

#include "analysis/ColourSchemes.h"
#include "analysis/InputCD.h"
#include "persistence/OpenSession.h"
#include "persistence/SaveSession.h"
#include "session/Diagnostics.h"
#include "session/Monitor.h"
#include "session/MonitorChoice.h"
#include "session/RecordingTime.h"
#include "session/RedrawPanels.h"
#include "session/SessionButtons.h"
#include "session/ShutDown.h"
#include "support/LiveTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

class Recording : public LiveTest {};

TEST_F(Recording, StartsAndStopsByTheButtonInEveryDetail) {
    ColourSchemeIndex = 2;
    RefreshSessionButtons(true);
    EXPECT_EQ(picStartSmp.Frame, 9);
    HoverRecordButton(true);
    EXPECT_EQ(picStartSmp.Frame, 10);
    labQSMenu[0].Caption = "flip";
    Press();
    EXPECT_EQ(labStatus.Caption, "<149>");
    EXPECT_EQ(labBPMA.Caption, "<155>: 0 ");
    EXPECT_EQ(labBPMB.Caption, "<155>: 0 ");
    EXPECT_EQ(labQSMenu[0].Caption, "<126>");
    EXPECT_EQ(picStartSmp.Frame, 12); // lit
    HoverRecordButton(true);
    EXPECT_EQ(picStartSmp.Frame, 11); // not the highlight of an idle button
    EXPECT_EQ(picReplay.Frame, FrameReplayBlocked);
    EXPECT_EQ(picStop.Frame, FrameStopBlocked);
    EXPECT_TRUE(timProcess.Enabled);
    EXPECT_NE(DeviceReady, Off);
    EXPECT_EQ(MillisecondsBetween(SessionStartTime, NextSecondDue), 250);
    EXPECT_EQ(MillisecondsBetween(SessionStartTime, NextHalfDue), 125);
    EXPECT_EQ(AcquisitionTick, 1);

    Timers.Advance(10500);
    EXPECT_EQ(RecordedSeconds, 10);
    EXPECT_EQ(SessionSeconds, 10);
    EXPECT_EQ(SessionTick, 10);
    EXPECT_EQ(AnalysisSecond, 10);
    EXPECT_NE(SessionUnsaved, Off);
    EXPECT_EQ(WriteIndexA, 1344); // 10.5 s of 128
    EXPECT_EQ(WriteIndexB, 0);
    ReleaseReplayButton(RightButton);
    EXPECT_FALSE(timReplay.Enabled);

    Press();
    EXPECT_NE(StopRequested, Off);
    EXPECT_NE(SessionRunning, Off); // until the acquisition hears of it
    Timers.Advance(20);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_FALSE(timProcess.Enabled || timLedBlink.Enabled);
    EXPECT_EQ(labStatus.Caption, "noname<134>");
    EXPECT_EQ(picStartSmp.Frame, 9);
    EXPECT_EQ(picReplay.Frame, FrameReplayRest);
    EXPECT_EQ(picStop.Frame, FrameStopRest);
    EXPECT_EQ(Monitor().Closes, 0);
    Timers.Advance(1000);
    EXPECT_EQ(Monitor().Closes, 1);
    EXPECT_EQ(DeviceHandle, 0);
    ReleaseReplayButton(RightButton); // from its start
    Timers.Advance(1000);
    EXPECT_EQ(SessionTick, 2);
}

TEST_F(Recording, WhatStandsOnThePanelsAfterItsEndIsItsLastSecond) {
    RecordAndStop(0);
    EXPECT_TRUE(labNoSession.Visible); // nothing has come
    RecordAndStop(12);
    EXPECT_FALSE(labNoSession.Visible);
    OpenAllPanels(true);
    EXPECT_EQ(SessionTick, 1);
    EXPECT_EQ(EcgViewState.LastSecondA, 12);
    EXPECT_EQ(AnalysisSecond, 12);
}

TEST_F(Recording, FourSecondsAreTooFewForAReplayAndFiveEnough) {
    RecordAndStop(4);
    EXPECT_EQ(RecordedSeconds, 4);
    EXPECT_EQ(picReplay.Frame, FrameReplayBlocked);
    EXPECT_EQ(picStop.Frame, FrameStopBlocked);
    RecordAndStop(5); // too short a session to ask about
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(RecordedSeconds, 5);
    EXPECT_EQ(picReplay.Frame, FrameReplayRest);
    EXPECT_EQ(picStop.Frame, FrameStopRest);
}

TEST_F(Recording, AnUnsavedSessionIsAskedAboutBeforeANewOne) {
    RecordAndStop(17);
    Outside.Boxes.Answers = {ButtonCancel};
    labQSMenu[0].Caption = "kept";
    Press();
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(labQSMenu[0].Caption, "kept");
    EXPECT_EQ(Outside.Boxes.Shown.at(0).Text, "<253>");
    EXPECT_EQ(Outside.Boxes.Shown[0].Buttons, ButtonYes | ButtonNo | ButtonCancel);
    Outside.Boxes.Answers = {ButtonYes}; // and the dialog is cancelled
    Press();
    EXPECT_EQ(SessionRunning, Off);
    Outside.Boxes.Answers = {ButtonYes};
    Outside.Dialogs.Answers = {"/kept.hti"};
    Press();
    EXPECT_NE(SessionRunning, Off);
    EXPECT_EQ(Outside.Disk.Content.count("/kept.hti"), 1U);
    EXPECT_EQ(SessionName, "noname");
    EXPECT_EQ(SessionSeconds, 0);
    Timers.Advance(17500);
    Press();
    Timers.Advance(20);
    Outside.Boxes.Answers = {ButtonNo};
    Press();
    EXPECT_NE(SessionRunning, Off);
    EXPECT_EQ(WriteIndexA, 0);
}

TEST_F(Recording, WithoutAMonitorTheSessionStaysAsItWas) {
    MakeSession(60);
    const float sample = EcgA[1000];
    MonitorName = "none";
    Press();
    EXPECT_EQ(labStatus.Caption, "<254>");
    EXPECT_NE(ChooserOpen, Off); // what is missing can be chosen at once
    MonitorName = "fake";
    Monitor().Opens = false;
    Press();
    EXPECT_EQ(labStatus.Caption, "<333>fake: no sensor");
    EXPECT_EQ(DeviceReady, Off);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_FALSE(timProcess.Enabled);
    EXPECT_EQ(SessionSeconds, 60);
    EXPECT_EQ(EcgA[1000], sample);
    EXPECT_TRUE(Outside.Disk.Content.empty());
}

TEST_F(Recording, APauseLeavesAGapOfZerosWithIntervalsOfOne) {
    AllowMultiSessions = On;
    Record(20600);
    Press();
    Timers.Advance(20);
    EXPECT_NE(SessionPaused, Off);
    EXPECT_EQ(RecordedSeconds, 20);
    const Long written = WriteIndexA;
    EXPECT_NEAR(written, 20.6 * 128, 3);
    const float before = EcgA[written];
    Timers.Advance(60000);
    for (Long i = written + 1; i <= written + 672; ++i)
        EcgA[i] = 5; // what an earlier session might have left
    Press();
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(WriteIndexA, written + 640);
    EXPECT_EQ(EcgA[written], before);
    EXPECT_EQ(EcgA[written + 672], 0);
    Timers.Advance(300); // the seconds of the gap have gone by at once
    EXPECT_EQ(SessionPaused, Off);
    EXPECT_EQ(RecordedSeconds, 25);
    Timers.Advance(10000);
    EXPECT_EQ(RecordedSeconds, 35);
    EXPECT_EQ(SessionTick, 35);
    EXPECT_NEAR(WriteIndexA, (20.62 + 5 + 10.3) * 128, 3);
    for (Long i = written + 1; i <= written + 640; ++i)
        ASSERT_EQ(EcgA[i], 0) << i;
    for (Long second = 22; second <= 25; ++second)
        EXPECT_EQ(IbiA[second], 1.0F) << second;
    EXPECT_NEAR(IbiA[19], 0.8, 0.004);
    EXPECT_NEAR(IbiA[32], 0.8, 0.004);
}

TEST_F(Recording, WithoutSeparatorAPauseLeavesNothing) {
    AllowMultiSessions = On;
    InsertSeparator = Off;
    Record(20600);
    Press();
    Timers.Advance(20);
    const Long written = WriteIndexA;
    Timers.Advance(3000000);
    Press();
    EXPECT_EQ(WriteIndexA, written);
    Timers.Advance(20400);
    EXPECT_NEAR(WriteIndexA, written + 20.4 * 128, 3);
    EXPECT_EQ(RecordedSeconds, 40);
    EXPECT_NE(EcgA[written + 5], 0);
}

TEST_F(Recording, AMonitorThatIsStillOpenIsOpenedAnewForTheNextRecording) {
    RecordAndStop(5);
    Timers.Advance(400);
    Press();
    Timers.Advance(5000);
    EXPECT_EQ(Monitor().Inits, 2);
    EXPECT_EQ(Monitor().Closes, 1);
    EXPECT_EQ(RecordedSeconds, 4);
}

TEST_F(Recording, DryTestingRunsTheClockOverZeros) {
    DryTesting = On;
    MonitorName = "Select your ECG monitor";
    ChannelBPresent = On;
    Press();
    EXPECT_EQ(labDryTesting.Caption, "<238>");
    EXPECT_EQ(labDryTesting.ForeColour, 255U);
    Timers.Advance(30500);
    EXPECT_EQ(RecordedSeconds, 30);
    EXPECT_EQ(IbiA[30], 1);
    EXPECT_EQ(WriteIndexB, 3904);
    Press();
    Timers.Advance(1100);
    EXPECT_EQ(labDryTesting.Caption, "<239>");
    EXPECT_EQ(labDryTesting.ForeColour, 0x00FF00U);
}

TEST_F(Recording, EndsByItselfAfterFourAndAHalfMinutesOrAtTheEndOfTheBuffers) {
    AutoEndSession = On;
    Record(272000);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(RecordedSeconds, 271); // enough for a scan
    EXPECT_EQ(labStatus.Caption, "noname<336>");
    AutoEndSession = Off;
    Outside.Boxes.Answers = {ButtonNo};
    Record(3700000);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(RecordedSeconds, 3601);
    EXPECT_LE(WriteIndexA, EcgBufferSize);
    EXPECT_EQ(labStatus.Caption, "noname<335>");

    AllowMultiSessions = On; // a pause whose gap reaches beyond the end
    Outside.Boxes.Answers = {ButtonNo};
    Record(3599500);
    Press();
    Timers.Advance(20);
    EXPECT_EQ(RecordedSeconds, 3599);
    Press();
    Timers.Advance(2000);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(RecordedSeconds, 3601);
    EXPECT_EQ(WriteIndexA, EcgBufferSize);
}

TEST_F(Recording, TheProgramsEndClosesTheMonitorAndAsks) {
    Record(20500);
    Outside.Boxes.Answers = {ButtonCancel};
    EXPECT_FALSE(ExitProgram());
    EXPECT_EQ(Monitor().Closes, 1);
    EXPECT_EQ(SessionRunning, Off);
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 1U); // the session is still there
    EXPECT_EQ(picReplay.Frame, FrameReplayRest);
    EXPECT_EQ(labStatus.Caption, "noname<134>"); // who stays sees that it has ended
    EXPECT_EQ(SessionTick, 1);
    Outside.Boxes.Answers = {ButtonNo};
    EXPECT_TRUE(ExitProgram());
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 0U);
}

} // namespace
} // namespace pulselark
