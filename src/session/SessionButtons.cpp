#include "session/SessionButtons.h"

#include "analysis/ColourSchemes.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

namespace pulselark {

namespace {

// Frames of a scheme's row in the strips of record pictures.
constexpr int RecordFramesPerScheme = 4;
constexpr int TrainingRecordFramesPerScheme = 2;
// Rows of the strip of replay and stop pictures lie three frames apart.
constexpr Integer HoverOffset = FrameReplayHover - FrameReplayRest;

} // namespace

void RefreshSessionButtons(bool /*force*/) {
    const int perScheme = TrainingActive != Off ? TrainingRecordFramesPerScheme : RecordFramesPerScheme;
    picStartSmp.Frame = static_cast<Integer>(ColourSchemeIndex * perScheme + 1);
    const bool enough = SessionSeconds >= ReplayMinimumSeconds || timReplay.Enabled;
    if (SessionRunning != Off || !enough) {
        picReplay.Frame = FrameReplayBlocked;
        picStop.Frame = FrameStopBlocked;
        return;
    }
    picReplay.Frame = timReplay.Enabled ? FrameReplayRunning : FrameReplayRest;
    picStop.Frame = FrameStopRest;
}

void HoverSessionButton(PictureButton& button, bool over) {
    RefreshSessionButtons(false);
    if (over && ButtonAvailable(button))
        button.Frame = static_cast<Integer>(button.Frame + HoverOffset);
}

void PressStopButton() {
    if (ButtonAvailable(picStop))
        picStop.Frame = FrameStopBlocked;
}

bool ButtonAvailable(const PictureButton& button) {
    return button.Frame != FrameReplayBlocked && button.Frame != FrameStopBlocked;
}

} // namespace pulselark
