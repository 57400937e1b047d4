#include "session/Replay.h"

#include "feedback/MIDI_OUT.h"
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
    timStopScrollGame.Enabled = false; // what the replay before has left to do is overtaken
    if (FeedbackMode <= 1)
        SendAppCommand(CmdPacerOff);
    SendAppCommand(TimeLapseReplay != Off ? CmdReplayLong : CmdReplayNormal);
    if (FeedbackEnabled == Off)
        return;
    if (FeedbackMode < 1)
        FeedbackMode = 2;
    RunModeFromReplay(static_cast<int>(std::clamp(FeedbackMode, 0.0, 3.0)));
    SendAppCommand(CmdSetLevel, FeedbackMode);
    if (FeedbackMode >= 2)
        SendAppCommand(CmdStartScroll);
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
    SilenceMidi();
    if (SessionSeconds > 0)
        ShowStatus(SessionName + LanguageText(TextReplayEnded));
    RefreshSessionButtons(false);
    if (FeedbackFromReplay())
        SendAppCommand(CmdStopScroll);
}

void ReplayTick() {
    if (SessionTick >= SessionSeconds) {
        EndReplay();
        EndModes();
        FadeOutMusic();
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
    if (FeedbackFromReplay()) {
        StopMusicAtOnce();
        timStopScrollGame.Enabled = true;
    }
}

} // namespace pulselark
