#include "session/SessionButtons.h"

#include "analysis/ColourSchemes.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <algorithm>

namespace pulselark {

namespace {

// Frames of a scheme's row in the strip of record pictures, and in that of the training.
constexpr int RecordFramesPerScheme = 4;
constexpr int TrainingRecordFramesPerScheme = 2;
constexpr int RecordHover = 2;
constexpr int RecordRunningHover = 3;
// The control window of the application link has one row.
constexpr Integer LinkLitFrame = 4;
// Rows of the strip of replay and stop pictures lie three frames apart.
constexpr Integer HoverOffset = FrameReplayHover - FrameReplayRest;

// Frame `place` of the colour scheme's row; the last one is the lit one.
Integer RecordFrame(int place) {
    const int perScheme = TrainingActive != Off ? TrainingRecordFramesPerScheme : RecordFramesPerScheme;
    return static_cast<Integer>(ColourSchemeIndex * perScheme + std::min(place, perScheme));
}

} // namespace

void DrawRecordLamp() {
    const bool lit = SessionRunning != Off && !timLedBlink.Enabled;
    if (lit && AppLinkOnly != Off)
        picStartSmp.Frame = LinkLitFrame;
    else
        picStartSmp.Frame = RecordFrame(lit ? RecordFramesPerScheme : 1);
}

bool RecordButtonLifted() {
    return TrainingActive == Off && (picStartSmp.Frame == RecordFrame(RecordHover) ||
                                     picStartSmp.Frame == RecordFrame(RecordRunningHover));
}

void HoverRecordButton(bool over) {
    DrawRecordLamp();
    if (over)
        picStartSmp.Frame = RecordFrame(SessionRunning != Off ? RecordRunningHover : RecordHover);
}

void RefreshSessionButtons(bool /*force*/) {
    DrawRecordLamp();
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
