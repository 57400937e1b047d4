#include "session/StartUp.h"

#include "analysis/GCoherence.h"
#include "persistence/LanguagePack.h"
#include "platform/ProgramFolder.h"
#include "quickscan/QuickScan.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionTimers.h"

namespace pulselark {

namespace {

constexpr Integer MovingAverageKnobStart = 500;

} // namespace

void InitApplication() {
    SetStartValues();
    ResetMainControls();
    InstallTimerHandlers();
    LanguageIndex = 0;
    LoadLanguagePack();
    MovingAverageWidth = MovingAverageFromKnob(MovingAverageKnobStart);
    SessionsFolder = ProgramFolder() + "/Sessions/";
    LastOpenFolder = LastSaveFolder = SessionsFolder;
    ResetQuickScan();
    labChannelMode.Caption = LanguageText(TextChannelModeBase + ChannelMode);
    timLoadingProgress.Enabled = false;
    ShowStatus(LanguageText(TextReady));
}

} // namespace pulselark
