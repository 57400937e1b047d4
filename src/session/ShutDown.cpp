#include "session/ShutDown.h"

#include "feedback/MIDI_OUT.h"
#include "feedback/ModeSelector.h"
#include "feedback/SendAppData.h"
#include "feedback/WMPPlay.h"
#include "persistence/AppSettings.h"
#include "persistence/Configuration.h"
#include "persistence/DropSession.h"
#include "persistence/TrainingSettings.h"
#include "session/Connection.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Monitor.h"
#include "session/SessionButtons.h"

namespace pulselark {

namespace {

void TellPartners() {
    SendAppCommand(TrainingActive != Off ? CmdCloseScenery : CmdStopNoTraining);
    if (AppLinkOnly != Off)
        SendAppCommand(CmdCloseScenery);
}

void EndRecording() {
    if (SessionRunning == Off)
        return;
    timProcess.Enabled = false;
    if (DryTesting == Off)
        CloseMonitor();
    RestJournal();
    SessionRunning = Off;
    timLedBlink.Enabled = false;
    EndConnection();
    ShowStatus(SessionName +
               LanguageText(TextRecordingStopped)); // who stays after all sees that it has ended
    SessionTick = 1;
    if (TrainingActive != Off)
        EndModes();
    RefreshSessionButtons(true);
}

void FinishProgram() {
    timReplay.Enabled = false;
    SilenceMidi();
    MidiClose();
    StopMusicAtOnce();
    SaveTrainingSettings();
    SaveAppSettings();
    if (TrainingActive == Off)
        SaveConfig(PreviousConfig);
}

} // namespace

bool ExitProgram() {
    if (SessionBusy() || SeekBusy != Off || DialogOpen != Off)
        return false;
    TellPartners();
    EndRecording();
    if (!MayDropSession(TextSaveBeforeExit))
        return false;
    DiscardJournal();
    FinishProgram();
    return true;
}

void EndProgram() {
    SilenceMidi();
    TellPartners();
    EndRecording();
    FinishProgram();
}

} // namespace pulselark
