#include "session/StartUp.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/GameChart.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/SpectrumPanel.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiChord.h"
#include "feedback/MidiSwitches.h"
#include "feedback/ModeSelector.h"
#include "feedback/Pacer.h"
#include "feedback/Scenery.h"
#include "feedback/SendAppData.h"
#include "feedback/SoundTester.h"
#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "persistence/AppSettings.h"
#include "persistence/Configuration.h"
#include "persistence/LanguagePack.h"
#include "persistence/TrainingSettings.h"
#include "platform/ProgramFolder.h"
#include "quickscan/QuickScan.h"
#include "session/Connection.h"
#include "session/Diagnostics.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/MonitorChoice.h"
#include "session/RedrawPanels.h"
#include "session/ReportDocument.h"
#include "session/SessionButtons.h"
#include "session/SessionTimers.h"
#include "session/Settings.h"

namespace pulselark {

Boolean StartingUp = On;

namespace {

// Stage 3 waits this long, whatever its timer was made with.
constexpr Long ShowModulesInterval = 2000;
bool stagesWait = true;
bool userIsThere = true;

void SetDisplayDefaults() {
    ColourSchemeIndex = 0;
    SolidGraphs = Off;
    ResetSpectrumDisplay();
    ResetCoherenceDisplay();
    ResetHrvDisplay();
    ResetHistoryDisplay();
    MovingAverageWidth = MovingAverageFromKnob(MovingAverageKnob);
}

void ReadSettings() {
    SetDefaultSettings();
    LoadAppSettings();
    LoadTrainingSettings();
    PlayerVolume = AdjustVolume;
    if (AutoLoadPrevConfig != Off)
        LoadConfig(PreviousConfig);
    RefreshConfigList();
}

void HidePanels() {
    for (PanelPlace& panel : picModule)
        panel.Visible = Off;
}

void StartUpTick() {
    timStartUp.Enabled = false;
    timLoadingProgress.Enabled = false;
    labLoading.Caption = LanguageText(TextStartUpLoading);
    labLoading.Visible = stagesWait;
    timLoadingProgress.Enabled = stagesWait;
    RefreshSessionButtons(false);
    ShowStatus(LanguageText(TextReady));
    timShowModules.Interval = stagesWait ? ShowModulesInterval : 1;
    timShowModules.Enabled = true;
    StartingUp = Off;
    if (TrainingActive != Off)
        LaunchDelayed("WideFB.exe");
}

void ShowModulesTick() {
    timShowModules.Enabled = false;
    labLoading.Visible = false;
    for (std::size_t i = 0; i < picModule.size(); ++i)
        picModule[i].Visible = PanelVisible[i];
    timPrintFirst.Enabled = true;
    OpenMidiOutputAtStart();
    if (MonitorName != NoMonitorYet || DryTesting != Off)
        return;
    if (SessionSeconds < 1)
        ShowStatus(LanguageText(TextNoMonitorChosen));
    if (userIsThere)
        OpenMonitorChooser();
}

} // namespace

void InitApplication(bool readSettings) {
    StartingUp = On;
    SetStartValues();
    ResetMainControls();
    ResetSettings();
    ResetModulePanels();
    ResetAppLink();
    ResetTraining();
    ResetGames();
    ResetModeSelector();
    ResetPacer();
    ResetMusic();
    ResetMidiOutput();
    ResetMidiChord();
    ResetMidiSwitches();
    ResetSoundTester();
    ResetConnection();
    ResetJournal();
    ResetDiagnostics();
    ResetMonitorChooser();
    InstallTimerHandlers();
    timStartUp.Handler = &StartUpTick;
    timShowModules.Handler = &ShowModulesTick;
    timLoadingProgress.Enabled = false;
    LanguageIndex = 0;
    LoadLanguagePack();
    FillMidiDevices(lstMidiDevice);
    LoadMidiInstruments();
    ResetReportDocument();
    SetDisplayDefaults();
    if (readSettings)
        ReadSettings();
    HidePanels();
    SessionsFolder = ProgramFolder() + "/Sessions/";
    LastOpenFolder = LastSaveFolder = SessionsFolder;
    ResetQuickScan();
    labChannelMode.Caption = LanguageText(TextChannelModeBase + ChannelMode);
    ChannelBPresent = ToBoolean(ChannelMode == 1);
    SetModeTips();
    RefreshSessionButtons(true);
}

void BeginStartUp(bool waiting) {
    stagesWait = waiting;
    userIsThere = true;
    timStartUp.Interval = waiting ? 100 : 1;
    timPrintFirst.Interval = waiting ? 618 : 1;
    timABMode.Interval = waiting ? 750 : 1;
    timStartUp.Enabled = true;
}

void FinishStartUp() {
    stagesWait = false;
    userIsThere = false;
    StartUpTick();
    ShowModulesTick();
    timPrintFirst.Enabled = false;
    RedrawAllPanels();
}

} // namespace pulselark
