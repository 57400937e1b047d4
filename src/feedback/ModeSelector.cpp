#include "feedback/ModeSelector.h"

#include "session/LanguageTable.h"
#include "session/MainBuffers.h"

namespace pulselark {

Integer LastModeIndex = -1;
double LastMode = -1;
Integer ModeShown = -1;
std::array<std::string, ModeCount> imBFCTips;

void DrawModeSelector(int index) {
    ModeShown = static_cast<Integer>(index);
}

void ApplyModeState() {
    int running = -1;
    for (int mode = 0; mode < ModeCount; ++mode) {
        if (ModeRunning[static_cast<std::size_t>(mode)] != Off)
            running = mode;
    }
    DrawModeSelector(running);
}

void SetModeTips() {
    for (int mode = 0; mode < ModeCount; ++mode) {
        std::string tip = LanguageText(TextModePacer + mode) + LanguageText(TextModeClickTip);
        if (mode > 0 && FeedbackEnabled == Off)
            tip += LanguageText(TextModeRightClickTip);
        imBFCTips[static_cast<std::size_t>(mode)] = tip;
    }
}

void RunModeFromReplay(int mode) {
    FeedbackMode = mode;
    ModeRunning.fill(Off);
    ModeRunning.at(static_cast<std::size_t>(mode)) = On;
    ApplyModeState();
}

void EndModes() {
    ModeRunning.fill(Off);
    ApplyModeState();
}

void ResetModeSelector() {
    LastModeIndex = ModeShown = -1;
    LastMode = -1;
    imBFCTips.fill({});
}

} // namespace pulselark
