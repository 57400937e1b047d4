#include "feedback/PartnerTools.h"

#include "analysis/ColourSchemes.h"
#include "feedback/SendAppData.h"
#include "feedback/ShellMod.h"
#include "platform/Platform.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/RedrawPanels.h"

#include <array>

namespace pulselark {

namespace {

constexpr int ShownByDefault = 10;

// What the breathing tool hears, kept as it was when the tool was started.
std::array<int, 2> rybMessages{};

bool Start(const char* program) {
    const ShellOutcome outcome = ShellExecuteChecked(program, ShownByDefault, "", "", "open");
    if (outcome.Failed) {
        ThePlatform().Messages.Show(
            std::string(program) + ": " + outcome.Description +
                (outcome.Number != 0 ? " (" + std::to_string(outcome.Number) + ")" : std::string()),
            ButtonOK);
    }
    return !outcome.Failed;
}

void TellBreathingTool() {
    timStartRYB.Enabled = false;
    for (const int message : rybMessages)
        SendAppCommand(message);
}

} // namespace

void StartBreathingTool() {
    if (!Start("ryb.exe"))
        return;
    rybMessages = {FeedbackEnabled != Off ? CmdBreathToolFeedback : CmdBreathToolPlain,
                   CmdStyle + ColourSchemeIndex};
    timStartRYB.Enabled = true;
}

void StartStoneGarden() {
    Start("StoneGarden.exe");
}

void StartTidalView() {
    LinkWindowTitle = "TidalRunner";
    if (Start("TidalRun.exe"))
        AppLinkOnly = On;
}

void LeaveTidalView() {
    if (AppLinkOnly == Off)
        return;
    SendAppCommand(CmdCloseScenery);
    AppLinkOnly = Off;
    RedrawAllPanels();
}

void InstallToolTimers() {
    timStartRYB.Handler = &TellBreathingTool;
}

} // namespace pulselark
