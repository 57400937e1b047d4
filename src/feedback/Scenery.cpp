#include "feedback/Scenery.h"

#include "analysis/CoherencePanel.h"
#include "feedback/ModeSelector.h"
#include "feedback/SendAppData.h"
#include "feedback/ShellMod.h"
#include "feedback/ggz.h"
#include "session/LanguageTable.h"
#include "session/Layout.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/RedrawPanels.h"
#include "session/Settings.h"

namespace pulselark {

namespace {

constexpr const char* SceneryProgram = "WideFB.exe";
constexpr int ShownNormally = 1;

std::string delayedToolName;

// The pacer and the baroreflex training have no use for the coherence, but for its panel's frame.
bool StillModeRuns() {
    return (FeedbackMode == 0 || FeedbackMode == 1) &&
           ModeRunning[static_cast<std::size_t>(FeedbackMode)] != Off;
}

void RefreshCoherenceFrame() {
    if (StillModeRuns())
        OpenCoherencePanel(true);
}

void OfferClick(Timer& timer) {
    timer.Enabled = false;
    labRestoreGame.Caption = LanguageText(TextSceneryClick);
}

void StopScrollTick() {
    timStopScrollGame.Enabled = false;
    SendAppCommand(CmdStopScroll);
}

void StartScrollTick() {
    timStartScrollDelayed.Enabled = false;
    SendAppCommand(CmdStartScroll);
}

void SetupTick() {
    timSendGameSetup.Enabled = false;
    SendSceneryState(false);
    // The set-up does not hold the balance, and a scenery that has just started does not know it.
    SendAppCommand(CmdBreathingBalance, BreathingBalance);
    RefreshCoherenceFrame();
}

void LaunchTick() {
    timShellExDelayed.Enabled = false;
    if (delayedToolName == SceneryProgram)
        StartWideFeedback();
    else
        static_cast<void>(ShellExecuteChecked(delayedToolName, ShownNormally, "", "", "open"));
    ApplyModeState();
}

} // namespace

void StartWideFeedback() {
    LayoutCanvas();
    OpenAllPanels(true);
    LinkWindowTitle = "WideFeedback";
    // A program that is not there is no failure of the training: its cover says so in a while.
    const ShellOutcome outcome = ShellExecuteChecked(SceneryProgram, ShownNormally, "", "", "open");
    SceneryOpen = ToBoolean(!outcome.Failed);
    timSendGameSetup.Enabled = true;
}

void LaunchDelayed(const std::string& tool) {
    delayedToolName = tool;
    timShellExDelayed.Enabled = true;
}

void SendSceneryState(bool keepScene) {
    if (keepScene)
        SendAppCommand(CmdKeepScene);
    else
        SendAppCommand(CmdSceneRect, SceneRect[0], SceneRect[1], SceneRect[2], SceneRect[3]);
    SendAppCommand(CmdSetLevel, FeedbackMode);
    SendAppCommand(CmdLevelDone);
    SendAppCommand(CmdBreathingRate, BreathingRate);
    if (FeedbackMode >= 0)
        SendAppCommand(StillModeRuns() ? CmdPacerOn : CmdPacerOff);
    labRestoreGame.Caption = LanguageText(TextSceneryInitializing);
    timManualCloseScenery.Enabled = true;
    RefreshCoherenceFrame();
}

void ClickRestoreGame() {
    labRestoreGame.Caption = LanguageText(TextSceneryRestoring);
    StartWideFeedback();
    timManualCloseScenery.Enabled = true;
}

void RefuseSceneryChoice() {
    labRestoreGame.Caption = LanguageText(TextSceneryRestoreFirst);
    timRestoreGameFirst.Enabled = true;
    SendAppCommand(CmdSceneryMenu);
}

void PrepareForFileDialog() {
    SendAppCommand(CmdPrepareSave);
    picRestoreGame.Visible = true;
}

void InstallSceneryTimers() {
    timManualCloseScenery.Handler = [] { OfferClick(timManualCloseScenery); };
    timRestoreGameFirst.Handler = [] { OfferClick(timRestoreGameFirst); };
    timStopScrollGame.Handler = &StopScrollTick;
    timStartScrollDelayed.Handler = &StartScrollTick;
    timSendGameSetup.Handler = &SetupTick;
    timShellExDelayed.Handler = &LaunchTick;
}

} // namespace pulselark
