#include "session/MainBuffers.h"

#include "session/AnalysisBuffers.h"

namespace pulselark {

EcgBuffer EcgA, EcgB;
SecondsBuffer IbiA, IbiB;
SecondsBuffer IbiAvgA, IbiAvgB;
SecondsBuffer CoherenceA, CoherenceB;
SecondsBuffer CoherenceAvgA, CoherenceAvgB;

SessionFields SessionInfo, SessionInfoClipboard;

// The values below are set by SetStartValues, the program's first step.
Long SessionTick, SessionSeconds, RecordedSeconds, AnalysisSecond;
Long WriteIndexA, WriteIndexB;
Long SessionStartTime, SessionStartTimeSaved, PausedTotalMs, PauseStartTime;
Integer PauseGapSeconds;

Boolean SessionRunning, DeviceReady, DryTesting, SessionPaused, StopRequested;
Boolean LoadingSession, SavingSession, Rescanning, SeekBusy, SessionUnsaved, DialogOpen;
Boolean TrainingActive;
double FeedbackMode;
double SessionScore, DynamicIndex;
std::array<Boolean, 4> ModeRunning;
Boolean FeedbackEnabled, AppLinkOnly, QuickScanResultShown, QuickScanFresh;
Boolean ChannelBPresent;
Integer ChannelMode;
Boolean LockScreens, AllowMultiSessions, InsertSeparator;
Boolean MidiInTraining, MidiInPanels, TimeLapseReplay, MovieCommandsBlocked;

std::string SessionName, LastSessionFile, LastOpenFolder, LastSaveFolder, SessionsFolder, MonitorName;
Integer LastFileResult;

std::vector<float> QsSamples;

void ResetSessionBuffers() {
    EcgA.Fill(0);
    EcgB.Fill(0);
    ResetAnalysisBuffers();
    CoherenceA.Fill(0);
    CoherenceB.Fill(0);
    IbiA.Fill(1.0F);
    IbiB.Fill(1.0F);
    QsSamples.clear();
}

void SetStartValues() {
    SessionTick = 1;
    SessionSeconds = RecordedSeconds = AnalysisSecond = 0;
    WriteIndexA = WriteIndexB = 0;
    SessionStartTime = SessionStartTimeSaved = PausedTotalMs = PauseStartTime = 0;
    PauseGapSeconds = 5;

    SessionRunning = DeviceReady = DryTesting = SessionPaused = StopRequested = Off;
    LoadingSession = SavingSession = Rescanning = SeekBusy = SessionUnsaved = DialogOpen = Off;
    TrainingActive = Off;
    FeedbackMode = -1;
    SessionScore = DynamicIndex = 0;
    ModeRunning.fill(Off);
    FeedbackEnabled = On;
    AppLinkOnly = QuickScanResultShown = Off;
    QuickScanFresh = On;
    ChannelBPresent = Off;
    ChannelMode = 2;
    LockScreens = On;
    AllowMultiSessions = Off;
    InsertSeparator = On;
    MidiInTraining = MidiInPanels = TimeLapseReplay = MovieCommandsBlocked = Off;

    SessionName = "noname";
    LastSessionFile.clear();
    LastOpenFolder.clear();
    LastSaveFolder.clear();
    SessionsFolder.clear();
    MonitorName = NoMonitorYet;
    LastFileResult = FileSuccess;

    SessionInfo.fill({});
    SessionInfoClipboard.fill({});
    for (SecondsBuffer* averages : {&IbiAvgA, &IbiAvgB, &CoherenceAvgA, &CoherenceAvgB})
        averages->Fill(0);
    ResetSessionBuffers();
}

} // namespace pulselark
