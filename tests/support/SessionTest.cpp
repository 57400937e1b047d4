#include "support/SessionTest.h"

#include "analysis/CoherenceBins.h"
#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/GameChart.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/Spectrum.h"
#include "analysis/SpectrumPanel.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiSwitches.h"
#include "feedback/ModeSelector.h"
#include "feedback/Pacer.h"
#include "feedback/SendAppData.h"
#include "feedback/SoundTester.h"
#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "persistence/Configuration.h"
#include "persistence/OpenSession.h"
#include "platform/ProgramFolder.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QuickScan.h"
#include "session/AnalysisBuffers.h"
#include "session/Connection.h"
#include "session/Diagnostics.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/ModulePanels.h"
#include "session/Monitor.h"
#include "session/MonitorChoice.h"
#include "session/PanelSurfaces.h"
#include "session/Replay.h"
#include "session/ReportDocument.h"
#include "session/Settings.h"

namespace pulselark {

void PutEverythingBack() {
    SetStartValues();
    ResetMainControls();
    for (Timer* timer : SessionTimers())
        timer->Handler = nullptr;
    timReplay.Handler = &ReplayTick;
    ResetPanelSurfaces();
    SpectrumTrack = {};
    RecalcForced = Off;
    MovingAverageWidth = 0;
    EcgViewState = {};
    EcgForceRedraw = Off;
    EcgSecondWidth = 1024;
    EcgPixelUnit = 0;
    ColourSchemeIndex = 0;
    SolidGraphs = Off;
    ResetSpectrumDisplay();
    ResetCoherenceDisplay();
    ResetHrvDisplay();
    ResetHistoryDisplay();
    ResetSettings();
    ResetCoherenceBins();
    ResetQsAnalysis();
    QsTickCount = 0;
    ResetModulePanels();
    ResetTraining();
    ResetGames();
    ResetModeSelector();
    ResetPacer();
    ResetMusic();
    ResetMidiOutput();
    ResetMidiSwitches();
    ResetSoundTester();
    ResetMonitorChooser();
    PanelStyle[CanvasRow] = PanelOnCanvas[CanvasRow] = 0;
    fileList.clear();
    LastFileLine = 0;
    ResetAppLink();
    SetProgramFolder("");
    LanguageIndex = 0;
    LanguageTable.Clear();
    for (int item = 0; item < LanguageItems; ++item)
        LanguageTable(0, item) = "<" + std::to_string(item) + ">";
    ResetReportDocument();
    ResetConnection();
    ResetJournal();
    ResetDiagnostics();
    DeviceHandle = 0;
}

SessionTest::SessionTest() {
    PutEverythingBack();
}

// A journal that a test has left open lies on its own disk, which goes with it.
SessionTest::~SessionTest() {
    ResetJournal();
}

} // namespace pulselark
