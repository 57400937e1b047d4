#include "session/SessionTimers.h"

#include "analysis/ColourSchemes.h"
#include "feedback/PartnerTools.h"
#include "feedback/Scenery.h"
#include "feedback/WMPPlay.h"
#include "quickscan/QuickScan.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Monitor.h"
#include "session/MonitorChoice.h"
#include "session/RedrawPanels.h"
#include "session/Replay.h"

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

void FirstPaintTick() {
    timPrintFirst.Enabled = false;
    RedrawAllPanels();
    timLoadingProgress.Enabled = false;
    timABMode.Enabled = true;
}

// The lit frame of the record button; the acquisition enables the timer at each beat and so makes it blink.
void LedTick() {
    timLedBlink.Enabled = false;
    if (AppLinkOnly != Off)
        picStartSmp.Frame = 4;
    else if (TrainingActive != Off)
        picStartSmp.Frame = static_cast<Integer>(ColourSchemeIndex * 2 + 2);
    else
        picStartSmp.Frame = static_cast<Integer>(ColourSchemeIndex * 4 + 4);
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
    timStop.Handler = &CloseMonitorTick;
    timABMode.Handler = &ChannelModeTick;
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
