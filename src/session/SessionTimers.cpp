#include "session/SessionTimers.h"

#include "feedback/PartnerTools.h"
#include "feedback/Scenery.h"
#include "feedback/WMPPlay.h"
#include "persistence/FileMessages.h"
#include "quickscan/QuickScan.h"
#include "session/Acquisition.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Monitor.h"
#include "session/MonitorChoice.h"
#include "session/Recovery.h"
#include "session/RedrawPanels.h"
#include "session/Replay.h"
#include "session/SessionButtons.h"

namespace pulselark {

namespace {

constexpr Colour Green = 0x00FF00;

// One second after a recording stopped.
void CloseMonitorTick() {
    timStop.Enabled = false;
    if (DryTesting != Off) {
        labDryTesting.Caption = LanguageText(TextDryTestingOff);
        labDryTesting.ForeColour = Green;
        return;
    }
    CloseMonitor();
}

void ChannelModeTick() {
    timABMode.Enabled = false;
    if (ChannelMode != 1)
        return;
    if (TrainingActive == Off)
        ChannelBPresent = On;
    OpenAllPanels(true);
}

// The last stage of the start; what a crash has left is offered once the window stands.
void LastStartUpTick() {
    ChannelModeTick();
    OfferLeftRecording();
}

void FirstPaintTick() {
    timPrintFirst.Enabled = false;
    RedrawAllPanels();
    timLoadingProgress.Enabled = false;
    timABMode.Enabled = true;
}

// The record button is lit again; the acquisition enables the timer at each beat and so makes it blink.
void LedTick() {
    timLedBlink.Enabled = false;
    DrawRecordLamp();
}

void TellJournalTick() {
    timTellJournal.Enabled = false;
    ShowFileFailure(LanguageText(TextJournalFailed), {JournalFailure, 0}, JournalName(),
                    LanguageText(TextJournalFailedSafe));
}

void LoadingTick() {
    constexpr std::size_t LongestCaption = 13;
    labLoading.Caption += ".";
    if (labLoading.Caption.size() >= LongestCaption)
        labLoading.Caption = LanguageText(TextStartUpLoading);
}

} // namespace

void InstallTimerHandlers() {
    timReplay.Handler = &ReplayTick;
    timProcess.Handler = &ProcessTick;
    timTellJournal.Handler = &TellJournalTick;
    timStop.Handler = &CloseMonitorTick;
    timABMode.Handler = &LastStartUpTick;
    timPrintFirst.Handler = &FirstPaintTick;
    timLedBlink.Handler = &LedTick;
    timLoadingProgress.Handler = &LoadingTick;
    timQS.Handler = &QsTimerTick;
    InstallMusicTimers();
    InstallSceneryTimers();
    InstallToolTimers();
    InstallChooserTimer();
}

} // namespace pulselark
