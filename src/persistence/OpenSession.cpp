#include "persistence/OpenSession.h"

#include "analysis/GCoherence.h"
#include "feedback/SendAppData.h"
#include "feedback/ggz.h"
#include "persistence/DropSession.h"
#include "persistence/FileMessages.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "quickscan/QuickScan.h"
#include "session/AnalysisBuffers.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/RedrawPanels.h"
#include "session/Replay.h"
#include "session/Rescan.h"

namespace pulselark {

int LastFileLine = 0;

namespace {

bool MayOpen() {
    if (SessionBusy())
        return false;
    if (SessionRunning != Off) {
        ThePlatform().Messages.Show(LanguageText(TextRecordingRuns), ButtonOK);
        return false;
    }
    return MayDropSession(TextSaveBeforeOpen);
}

void TellFailure(const FileOutcome& outcome, const std::string& name) {
    LastFileResult = outcome.Number;
    LastFileLine = outcome.Line;
    ShowFileFailure(LanguageText(TextOpenFailed), outcome, name, LanguageText(TextOpenFailedSafe));
}

// Empties the buffers and the screen and reads the text into them.
FileOutcome ReadIntoBuffers(const std::string& name, const std::string& bytes) {
    ResetSessionBuffers();
    SessionSeconds = RecordedSeconds = 0;
    SessionTick = 1;
    SessionUnsaved = Off;
    SessionName = "noname";
    RedrawAllPanels();
    LoadingSession = On;
    ShowStatus(LanguageText(TextLoading) + name);
    const FileOutcome outcome = ReadSessionText(bytes);
    LoadingSession = Off;
    RecordedSeconds = SessionSeconds;
    QuickScanFresh = On;
    return outcome;
}

void PrepareTraining() {
    if (TrainingActive == Off)
        return;
    SendAppCommand(240, 0, 0, 0, 0);
    SendAppCommand(231, 0, 0, 0, 0);
    RestoreScenery();
    if (FeedbackEnabled != Off) {
        ModeRunning.fill(Off);
        ModeRunning[2] = On;
        FeedbackMode = 2;
        ApplyModeState();
    }
}

void ApplyChannelMode() {
    labChannelMode.Caption = LanguageText(TextChannelModeBase + ChannelMode);
    if (ChannelMode == 1)
        ChannelBPresent = On;
    if (ChannelMode == 2)
        ChannelBPresent = Off;
}

void ShowNewSession() {
    ResetQuickScan();
    labBPMA.Caption = labBPMB.Caption = LanguageText(TextHeartRate) + ": 0 ";
    ApplyChannelMode();
    OpenAllPanels(true);
}

} // namespace

void OpenSessionFromMenu() {
    if (MayOpen())
        OpenSession();
}

void OpenNamedSessionFromMenu(const std::string& name) {
    if (MayOpen())
        OpenSessionFile(name);
}

void OpenSession() {
    if (SessionRunning == Off)
        EndReplay();
    DialogOpen = On;
    const auto chosen = ThePlatform().FileDialogs.ChooseFileToOpen(LastOpenFolder, SessionFileFilter);
    DialogOpen = Off;
    if (!chosen) {
        LastFileResult = FailureCancelled;
        return;
    }
    OpenSessionFile(*chosen);
}

void OpenSessionFile(const std::string& name) {
    if (SessionRunning == Off)
        EndReplay();
    LastOpenFolder = name;
    RefreshSessionButtons(false);
    ThePlatform().MessageLoop.Yield();

    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(name, bytes); failure != 0) {
        TellFailure({failure, 0}, name);
        return;
    }
    if (const FileOutcome outcome = ReadIntoBuffers(name, bytes); outcome.Number != 0) {
        TellFailure(outcome, name);
        RefreshSessionButtons(false);
        return;
    }
    PrepareTraining();
    SessionUnsaved = Off;
    SessionName = LastSessionFile = name;
    SessionTick = 1;
    SpectrumSlotA = SpectrumSlotB = 1;
    RescanSession(true);
    TimeLapseReplay = Off;
    timReplay.Interval = ReplayInterval;
    StartReplay(false);
    ShowNewSession();
    LastFileResult = FileSuccess;
    LastFileLine = 0;
}

} // namespace pulselark
