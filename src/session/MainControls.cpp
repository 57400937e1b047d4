#include "session/MainControls.h"

#include <utility>

namespace pulselark {

Label labStatus, labPTime, labBFStart, labHRVNoDataA, labHRVNoDataB, labDryTesting, labNoSession;
Label labConnection;
Label labChannelMode, labLoading;
CaptionLabel labBPMA, labBPMB, labLeftS, labRightS, labLeftGC, labRightGC, labLeftHRV, labRightHRV;
std::array<CaptionLabel, 3> labLeftHis, labRightHis;
std::array<Label, 2> labQSMenu;
PageControl picSliderAv, picAvUp, picAvDown;

Picture picGamePassive, picRestoreGame;
Label labRestoreGame;

PictureButton picStartSmp, picReplay, picStop;

Timer timReplay{"timReplay", ReplayInterval};
Timer timProcess{"timProcess", 20};
Timer timStop{"timStop", 1000};
Timer timLedBlink{"timLedBlink", 146};
Timer timPause{"timPause", 5000};
Timer timBlockMovieCommands{"timBlockMovieCommands", 2000};
Timer timPlayerCheck{"timPlayerCheck", 250};
Timer timABMode{"timABMode", 750};
Timer timLoadingProgress{"timLoadingProgress", 250, true};
Timer timStartUp{"timStartUp", 100};
Timer timShowModules{"timShowModules", 1500};
Timer timPrintFirst{"timPrintFirst", 618};
Timer timQS{"timQS", 100};
Timer timSoundsOff{"timSoundsOff", 2500};
Timer timFadeOut{"timFadeOut", 250};
Timer timTellJournal{"timTellJournal", 1};
Timer timNA{"timNA", 1500};
Timer timManualCloseScenery{"timManualCloseScenery", 5000};
Timer timRestoreGameFirst{"timRestoreGameFirst", 2000};
Timer timStopScrollGame{"timStopScrollGame", 1500};
Timer timStartScrollDelayed{"timStartScrollDelayed", 2000};
Timer timSendGameSetup{"timSendGameSetup", 3500};
Timer timShellExDelayed{"timShellExDelayed", 2000};
Timer timStartRYB{"timStartRYB", 2000};

void (*AfterStatus)() = nullptr;

namespace {

constexpr std::array AllTimers{&timReplay,
                               &timProcess,
                               &timStop,
                               &timLedBlink,
                               &timPause,
                               &timBlockMovieCommands,
                               &timPlayerCheck,
                               &timABMode,
                               &timLoadingProgress,
                               &timStartUp,
                               &timShowModules,
                               &timPrintFirst,
                               &timQS,
                               &timManualCloseScenery,
                               &timRestoreGameFirst,
                               &timStopScrollGame,
                               &timStartScrollDelayed,
                               &timSendGameSetup,
                               &timShellExDelayed,
                               &timStartRYB,
                               &timSoundsOff,
                               &timFadeOut,
                               &timTellJournal,
                               &timNA};

} // namespace

std::span<Timer* const> SessionTimers() {
    return AllTimers;
}

void ResetMainControls() {
    AfterStatus = nullptr;
    for (Label* label :
         {&labStatus, &labPTime, &labBFStart, &labHRVNoDataA, &labHRVNoDataB, &labDryTesting, &labConnection,
          &labNoSession, &labChannelMode, &labLoading, &labRestoreGame, &labQSMenu[0], &labQSMenu[1]})
        *label = Label{};
    for (CaptionLabel* label :
         {&labBPMA, &labBPMB, &labLeftS, &labRightS, &labLeftGC, &labRightGC, &labLeftHRV, &labRightHRV,
          &labLeftHis[0], &labLeftHis[1], &labLeftHis[2], &labRightHis[0], &labRightHis[1], &labRightHis[2]})
        *label = CaptionLabel{};
    for (PageControl* control : {&picSliderAv, &picAvUp, &picAvDown})
        *control = PageControl{};
    for (Timer* timer : AllTimers)
        timer->Enabled = false;
    timLoadingProgress.Enabled = true;
    timReplay.Interval = ReplayInterval;
    picGamePassive.Visible = picRestoreGame.Visible = false;
    picStartSmp.Frame = 1;
    picReplay.Frame = FrameReplayBlocked;
    picStop.Frame = FrameStopBlocked;
}

void ShowStatus(std::string text) {
    labStatus.Caption = std::move(text);
    if (AfterStatus != nullptr)
        AfterStatus();
}

} // namespace pulselark
