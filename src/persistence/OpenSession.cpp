#include "persistence/OpenSession.h"

#include "analysis/InputCD.h"
#include "base/FlagWhile.h"
#include "feedback/ModeSelector.h"
#include "feedback/SendAppData.h"
#include "feedback/ggz.h"
#include "persistence/DropSession.h"
#include "persistence/FileMessages.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "quickscan/QuickScan.h"
#include "session/AnalysisBuffers.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/RedrawPanels.h"
#include "session/Replay.h"
#include "session/ReportDocument.h"
#include "session/Rescan.h"
#include "session/SessionButtons.h"

#include <optional>

namespace pulselark {

int LastFileLine = 0;

namespace {

bool MayOpen() {
    if (SessionBusy() || SeekBusy != Off || DialogOpen != Off)
        return false;
    if (SessionRunning != Off) {
        ThePlatform().Messages.Show(LanguageText(TextRecordingRuns), ButtonOK);
        return false;
    }
    return MayDropSession(TextSaveBeforeOpen);
}

void TellFailure(const FileOutcome& outcome, const std::string& name, const std::string& safe) {
    LastFileResult = outcome.Number;
    LastFileLine = outcome.Line;
    ShowFileFailure(LanguageText(TextOpenFailed), outcome, name, safe);
}

// Empties the buffers and the screen and reads the text into them.
FileOutcome ReadIntoBuffers(const std::string& name, const std::string& bytes) {
    ResetSessionBuffers();
    SessionSeconds = RecordedSeconds = 0;
    SessionTick = 1;
    SessionUnsaved = SessionPaused = Off;
    DiscardJournal();
    SessionName = "noname"; // until the file has been read, the buffers are nobody's
    // What the file before left in the averages of channel B would show ahead of the cursor.
    for (SecondsBuffer* averages : {&IbiAvgA, &IbiAvgB, &CoherenceAvgA, &CoherenceAvgB})
        averages->Fill(0);
    RedrawAllPanels();
    EcgViewState = {};
    const FlagWhile loading(LoadingSession);
    ShowStatus(LanguageText(TextLoading) + name);
    const FileOutcome outcome = ReadSessionText(bytes);
    RecordedSeconds = SessionSeconds;
    QuickScanFresh = On;
    return outcome;
}

void PrepareTraining() {
    if (TrainingActive == Off)
        return;
    SendAppCommand(CmdRestoreView);
    SendAppCommand(CmdPacerOff);
    RestoreScenery();
    if (FeedbackEnabled != Off) {
        ModeRunning.fill(Off);
        ModeRunning[2] = On;
        FeedbackMode = 2;
        ApplyModeState();
        SendAppCommand(CmdSetLevel, FeedbackMode);
        SendAppCommand(CmdLevelDone);
        timStartScrollDelayed.Enabled = true;
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

std::optional<std::string> AskForFile() {
    const FlagWhile open(DialogOpen);
    return ThePlatform().FileDialogs.ChooseFileToOpen(LastOpenFolder, SessionFileFilter);
}

// The dialog is over: reads the file, and starts to play it.
void ReadSessionFile(const std::string& name) {
    LastOpenFolder = name;
    RefreshSessionButtons(false);
    ThePlatform().MessageLoop.Yield();

    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(name, bytes); failure != 0) {
        TellFailure({failure, 0}, name, LanguageText(TextOpenFailedSafe));
        return;
    }
    if (const FileOutcome outcome = ReadIntoBuffers(name, bytes); outcome.Number != 0) {
        ApplyChannelMode();
        ClearReportFields(); // it belonged to the session that has gone
        ShowReportFileName();
        RefreshSessionButtons(false);
        TellFailure(outcome, name, LanguageText(TextOpenFailedHalfway));
        return;
    }
    PrepareTraining();
    SessionUnsaved = Off;
    SessionName = LastSessionFile = name;
    ShowReportFromFile();
    SessionTick = 1;
    SpectrumSlotA = SpectrumSlotB = 1;
    RescanSession(true);
    // A session that has just been opened plays at normal speed, whatever the one before did.
    TimeLapseReplay = Off;
    timReplay.Interval = ReplayInterval;
    StartReplay(false);
    ShowNewSession();
    LastFileResult = FileSuccess;
    LastFileLine = 0;
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
    const auto chosen = AskForFile();
    if (chosen)
        ReadSessionFile(*chosen);
    else
        LastFileResult = FailureCancelled;
}

void OpenSessionFile(const std::string& name) {
    if (SessionRunning == Off)
        EndReplay();
    ReadSessionFile(name);
}

} // namespace pulselark
