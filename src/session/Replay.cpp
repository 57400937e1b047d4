#include "session/Replay.h"

#include "feedback/ModeSelector.h"
#include "feedback/SendAppData.h"
#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionButtons.h"
#include "session/SessionTick.h"

#include <algorithm>

namespace pulselark {

namespace {

bool CanReplay() {
    return SessionRunning == Off && SessionSeconds >= ReplayMinimumSeconds;
}

bool FeedbackFromReplay() {
    return FeedbackEnabled != Off && TrainingActive != Off;
}

void StartTrainingReplay(bool keepPlayer) {
    if (FeedbackMode <= 1)
        SendAppCommand(231, 0, 0, 0, 0);
    SendAppCommand(TimeLapseReplay != Off ? 237 : 238, 0, 0, 0, 0);
    if (FeedbackEnabled == Off)
        return;
    if (FeedbackMode < 1)
        FeedbackMode = 2;
    ModeRunning.at(static_cast<std::size_t>(std::clamp(FeedbackMode, 0.0, 3.0))) = On;
    ApplyModeState();
    SendAppCommand(222, FeedbackMode, 0, 0, 0);
    if (FeedbackMode >= 2)
        SendAppCommand(225, 0, 0, 0, 0);
    PlayMusic(keepPlayer);
}

} // namespace

void StartReplay(bool keepPlayer) {
    timReplay.Enabled = true;
    ShowStatus(SessionName + LanguageText(TextReplay));
    RefreshSessionButtons(false);
    if (TrainingActive != Off)
        StartTrainingReplay(keepPlayer);
}

void EndReplay() {
    timReplay.Enabled = false;
    ShowStatus(SessionName + LanguageText(TextReplayEnded));
    RefreshSessionButtons(false);
    if (FeedbackFromReplay())
        SendAppCommand(226, 0, 0, 0, 0);
}

void ReplayTick() {
    if (SessionTick >= SessionSeconds) {
        EndReplay();
        EndModes();
        return;
    }
    RunSessionTick();
}

void ReleaseReplayButton(MouseButton button) {
    if (!CanReplay() || MovieCommandsBlocked != Off)
        return;
    if (timReplay.Enabled) {
        EndReplay();
        if (FeedbackFromReplay())
            StopMusicAndScenery();
        labBFStart.Visible = false;
        return;
    }
    TimeLapseReplay = ToBoolean(button == LeftButton && FeedbackEnabled != Off);
    timReplay.Interval = TimeLapseReplay != Off ? TimeLapseInterval : ReplayInterval;
    StartReplay(true);
}

void ReleaseStopButton() {
    if (!CanReplay())
        return;
    EndReplay();
    SessionTick = 1;
    RefreshSessionButtons(false);
    labBFStart.Visible = false;
    EndModes();
    if (FeedbackFromReplay())
        StopMusicAndScenery();
}

} // namespace pulselark
