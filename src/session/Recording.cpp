#include "session/Recording.h"

#include "base/FFT.h"
#include "feedback/MidiChord.h"
#include "feedback/SendAppData.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPage.h"
#include "quickscan/QuickScan.h"
#include "session/Connection.h"
#include "session/Diagnostics.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/LiveChannel.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Monitor.h"
#include "session/RecordingTime.h"
#include "session/RedrawPanels.h"
#include "session/SessionButtons.h"

#include <algorithm>

namespace pulselark {

namespace {

constexpr Colour Red = 255;

// A monitor that the recording before has left open for its last second is opened anew.
void StartDevice() {
    timStop.Enabled = false;
    if (DryTesting != Off) {
        labDryTesting.ForeColour = Red;
        labDryTesting.Caption = LanguageText(TextDryTestingOn);
        return;
    }
    OpenMonitor();
}

void BeginSession() {
    ResetSessionBuffers();
    RedrawAllPanels();
    SessionName = "noname";
    PausedTotalMs = SessionSeconds = RecordedSeconds = WriteIndexA = WriteIndexB = 0;
    SessionStartTimeSaved = ClockNow();
    ResetDiagnostics();
    PlanTransforms();
    LiveChannelA.Restart();
    LiveChannelB.Restart();
    BeginJournal();
}

void ContinueSession() {
    PausedTotalMs += MillisecondsBetween(PauseStartTime, ClockNow());
    if (InsertSeparator != Off) {
        PausedTotalMs -= PauseGapSeconds * 1000;
        // A gap that reaches beyond the buffers ends the recording at its first tick.
        for (Long* index : {&WriteIndexA, &WriteIndexB})
            *index = std::min<Long>(*index + PauseGapSeconds * SamplesPerSecond, EcgBufferSize);
    }
    NextSecondDue = Later(NextSecondDue, 1000);
    if (JournalName().empty()) // it went when the session was saved in its pause
        BeginJournal();
}

void ShowThatItRuns() {
    ShowStatus(LanguageText(TextRecording));
    picReplay.Frame = FrameReplayBlocked;
    picStop.Frame = FrameStopBlocked;
    labBPMA.Caption = labBPMB.Caption = LanguageText(TextHeartRate) + ": 0 ";
}

void ForgetQuickScan() {
    ResetQuickScan();
    QuickScanFresh = On;
    OpenQuickScanPanel();
}

} // namespace

void StartRecording() {
    DeviceReady = Off;
    StartDevice();
    if (DeviceReady == Off && DryTesting == Off)
        return;
    if (SessionPaused == Off)
        BeginSession();
    else
        ContinueSession();
    StopRequested = Off;
    ShowThatItRuns();
    SessionRunning = On;
    SessionTick = 1;
    labNoSession.Visible = false;
    DrawRecordLamp();
    ForgetQuickScan();
    const Long now = ClockNow();
    SetFirstDueTimes(now);
    SessionStartTime = now;
    AcquisitionTick = 1;
    BeginConnection(now);
    if (AppLinkOnly != Off)
        SendAppCommand(CmdSessionStart);
    timProcess.Enabled = true;
}

void StopRecording() {
    timProcess.Enabled = false;
    if (SessionRunning != Off) {
        timStop.Enabled = true;
        RestJournal();
    }
    SessionRunning = Off;
    EndMidiChord();
    timLedBlink.Enabled = false;
    DrawRecordLamp();
    EndConnection();
    ShowStatus(SessionName + LanguageText(TextRecordingStopped));
    if (RecordedSeconds > 4) {
        picReplay.Frame = FrameReplayRest;
        picStop.Frame = FrameStopRest;
    }
    SessionTick = 1; // a replay begins where the recording began
    labNoSession.Visible = SessionSeconds < 1;
}

void FillResumeGap() {
    constexpr Long Step = 32;
    for (Long written = 0; written <= PauseGapSeconds * SamplesPerSecond; written += Step) {
        for (Long i = 1; i <= Step; ++i) {
            if (const Long index = WriteIndexA + written + i; index <= EcgBufferSize)
                EcgA[index] = 0;
        }
    }
}

void PauseAsRecorded() {
    const Long now = ClockNow();
    RecordedSeconds = SessionSeconds;
    WriteIndexA = WriteIndexB = SessionSeconds * SamplesPerSecond;
    SessionStartTimeSaved = PauseStartTime = now;
    PausedTotalMs = 0;
    AnchorSession(now, WriteIndexA);
    NextSecondDue = now;
    LiveChannelA.Restart();
    LiveChannelB.Restart();
    SessionPaused = On;
}

} // namespace pulselark
