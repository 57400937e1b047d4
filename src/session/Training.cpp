#include "session/Training.h"

#include "feedback/FeedbackModes.h"
#include "feedback/ModeSelector.h"
#include "feedback/Pacer.h"
#include "feedback/Scenery.h"
#include "feedback/SendAppData.h"
#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "persistence/AppSettings.h"
#include "persistence/Configuration.h"
#include "persistence/TrainingSettings.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionButtons.h"
#include "session/Settings.h"

namespace pulselark {

namespace {

// A recording does not hinder it.
bool MayChangeView() {
    return !SessionBusy() && SeekBusy == Off && DialogOpen == Off;
}

// The settings keep whether the training was on, and so does the next start.
void KeepSettings() {
    SaveAppSettings();
    SaveTrainingSettings();
}

void EndTraining(int configuration) {
    if (TrainingActive == Off || !MayChangeView())
        return;
    if (TrainingSettingsOpen != Off)
        CloseTrainingSettings();
    StopSong();
    EndModes();
    labBFStart.Visible = picRestoreGame.Visible = false;
    TrainingActive = Off;
    TrainingPanelOpen = Off;
    AppLinkOnly = Off;
    picRestoreGame.Visible = false;
    timManualCloseScenery.Enabled = timSendGameSetup.Enabled = false;
    SendAppCommand(CmdCloseScenery);
    LoadConfig(configuration);
    RefreshSessionButtons(true);
    KeepSettings();
}

} // namespace

void EnterTraining() {
    if (TrainingActive != Off || !MayChangeView())
        return;
    SaveConfig(PreviousConfig);
    if (SessionRunning != Off)
        FeedbackEnabled = Off; // a training during a recording follows it
    TrainingActive = On;
    TrainingPanelOpen = On;
    LoadConfig(PreviousConfig);
    LayoutTrainingPanel();
    ApplyModeState();
    SetModeTips();
    RefreshSessionButtons(true);
    if (SessionSeconds > 0 && AnalysisSecond > 0)
        TickTraining();
    KeepSettings();
}

void LeaveTraining() {
    EndTraining(PreviousConfig);
}

void LeaveTrainingToDefault() {
    EndTraining(DefaultConfig);
}

void ChooseTrainingSource(bool stored) {
    if (ToBoolean(stored) == FeedbackEnabled || SessionRunning != Off)
        return;
    if (timReplay.Enabled)
        EndReplay();
    StopFeedback();
    EndModes();
    labBFStart.Visible = false;
    FeedbackEnabled = ToBoolean(stored);
    SetModeTips();
    if (!stored && labStatus.Caption == LanguageText(TextNoSession))
        ShowStatus(LanguageText(TextReady)); // the monitor needs none
}

void ClickTrainingSettings() {
    if (TrainingSettingsOpen != Off) {
        CloseTrainingSettings();
        return;
    }
    StopFeedback();
    TrainingSettingsOpen = On;
    SendAppCommand(CmdSettingsOpen);
}

void CloseTrainingSettings() {
    TrainingSettingsOpen = Off;
    SendAppCommand(CmdSettingsClosed);
    SendAppCommand(CmdRestoreView);
}

void ChooseScenery() {
    if (picRestoreGame.Visible) {
        if (TrainingSettingsOpen != Off)
            CloseTrainingSettings();
        RefuseSceneryChoice();
        return;
    }
    ThePlatform().Messages.Show(LanguageText(TextChooseSceneryThere), ButtonOK);
}

} // namespace pulselark
