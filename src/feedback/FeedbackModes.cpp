#include "feedback/FeedbackModes.h"

#include "feedback/MidiChord.h"
#include "feedback/ModeSelector.h"
#include "feedback/Scenery.h"
#include "feedback/SendAppData.h"
#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "persistence/SaveSession.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/MonitorChoice.h"
#include "session/Recording.h"
#include "session/SessionButtons.h"
#include "session/Settings.h"

#include <algorithm>

namespace pulselark {

namespace {

constexpr double PacerMode = 0;
constexpr int FirstLevelWithEcg = 1;
constexpr int FirstCoherenceLevel = 2;

Boolean& RunningOf(int index) {
    return ModeRunning[static_cast<std::size_t>(index)];
}

bool IsMode(int index) {
    return index >= 0 && index < ModeCount;
}

bool SomethingRuns() {
    return std::any_of(ModeRunning.begin(), ModeRunning.end(), [](Boolean runs) { return runs != Off; });
}

bool LevelWithEcgRuns() {
    return std::any_of(ModeRunning.begin() + FirstLevelWithEcg, ModeRunning.end(),
                       [](Boolean runs) { return runs != Off; });
}

void Toggle(Boolean& flag) {
    flag = static_cast<Boolean>(~flag);
}

// The pacer's button. While another level was running, its click only ends that one. Returns whether the
// pacer has been started.
bool TogglePacer(bool selectOnly) {
    if (selectOnly) {
        RunningOf(0) = Off;
        timReplay.Enabled = false;
        EndMidiChord();
        return false;
    }
    if (RunningOf(0) == Off && FeedbackEnabled == Off && timProcess.Enabled)
        return false;
    if (FeedbackMode == PacerMode || LastModeIndex == -1)
        Toggle(RunningOf(0));
    return RunningOf(0) != Off;
}

bool ToggleLevel(int index) {
    Toggle(RunningOf(index));
    return RunningOf(index) != Off;
}

void RunOtherButton(int index) {
    if (index == SceneryButton)
        SendSceneryState(true);
    if (index == MusicButton) {
        PlayerPanelOpen = On;
        ScanMusicFolder();
        DrawPlayerPanel();
    }
}

void ChooseMode(int index) {
    for (int other = 0; other < ModeCount; ++other) {
        if (other != index)
            RunningOf(other) = Off;
    }
    FeedbackMode = index;
    LastModeIndex = static_cast<Integer>(RunningOf(index) != Off ? index : -1);
    DrawModeSelector(LastModeIndex);
}

// A recording in its pause goes on with the level: nothing of it is lost.
bool ContinuesRecording() {
    return FeedbackEnabled == Off && SessionPaused != Off;
}

// Whether the session in memory may go. A save that is cancelled, or fails, keeps it.
bool MayDropUnsaved() {
    const int answer =
        ThePlatform().Messages.Show(LanguageText(TextSaveBeforeRecording),
                                    ButtonYes | ButtonNo | ButtonCancel, {MessageKind::Question, ButtonNo});
    if (answer == ButtonNo) {
        SessionUnsaved = Off;
        return true;
    }
    if (answer != ButtonYes)
        return false;
    PrepareForFileDialog();
    SaveSession();
    return LastFileResult == FileSuccess;
}

void GiveUpSelection(int index) {
    RunningOf(index) = Off;
    DrawModeSelector(-1);
}

void SendPacerState(int index, bool selectOnly) {
    if (!SomethingRuns())
        SendAppCommand(CmdPacerOff);
    else if (index < FirstCoherenceLevel && !selectOnly)
        SendAppCommand(CmdPacerOn);
}

void SendSceneryCommands(int index, bool changed) {
    if (changed && SomethingRuns())
        SendSceneryState(false);
    const bool scrolls = index >= FirstCoherenceLevel && SomethingRuns();
    if (scrolls)
        timStopScrollGame.Enabled = false; // what an earlier end has left to do is overtaken
    SendAppCommand(scrolls ? CmdStartScroll : CmdStopScroll);
}

// Nobody has watched a song that was tried, so that it may have come to its end unnoticed.
bool MusicPlays() {
    return Playing != Off && (PlaySource != Off || !SongEnded());
}

void StartOrFadeMusic() {
    if (SomethingRuns()) {
        if (MusicPlays() || AutoPlayMusic == Off || SessionUnsaved != Off)
            return;
        PlaySource = On;
        if (AlwaysFirstSong != Off)
            GoToListSong(1);
        PlayMusic(true);
    } else if (Playing != Off || PausedBetweenSongs != Off) {
        FadeOutMusic();
        timPlayerCheck.Enabled = false;
    }
}

// A level without a monitor has nothing to follow: it does not run.
void StartLiveLevel(int index) {
    StartRecording();
    if (SessionRunning != Off)
        return;
    RunningOf(index) = Off;
    ChooseMode(index);
    SendPacerState(index, false);
    SendSceneryCommands(index, false);
    StartOrFadeMusic();
    OfferMonitorChooser();
}

void StartOrStopSession(int index) {
    if (FeedbackEnabled == Off && LevelWithEcgRuns() && !timProcess.Enabled) {
        StartLiveLevel(index);
    } else if (FeedbackEnabled == Off && !SomethingRuns()) {
        StopRecording();
        EndMidiChord();
    } else if (FeedbackEnabled != Off && LevelWithEcgRuns() && SessionSeconds < 1) {
        ShowStatus(LanguageText(TextNoSession)); // what the level follows has yet to be opened
    }
    if (index == 0 || !SomethingRuns())
        StopFeedback();
}

} // namespace

void ClickModeButton(int index, MouseButton button) {
    if (button == LeftButton)
        SelectFeedbackMode(index, false);
    else if (button == RightButton && FeedbackEnabled == Off && !timProcess.Enabled)
        SelectFeedbackMode(index, true);
}

void SelectFeedbackMode(int index, bool selectOnly) {
    if (index < 0 || index >= ModeButtonCount)
        return;
    bool changed = false;
    if (index == 0)
        changed = TogglePacer(selectOnly);
    else if (IsMode(index))
        changed = ToggleLevel(index);
    else
        RunOtherButton(index);
    if (IsMode(index))
        ChooseMode(index);
    const bool startsLevel = changed && index >= FirstLevelWithEcg && !selectOnly && !timProcess.Enabled;
    if (startsLevel && SessionUnsaved != Off && !ContinuesRecording() && !MayDropUnsaved()) {
        GiveUpSelection(index);
        return;
    }
    if (IsMode(index))
        SendPacerState(index, selectOnly);
    if (!IsMode(index) || selectOnly) {
        DrawPlayerPanel();
        RefreshSessionButtons(false);
        return;
    }
    SendSceneryCommands(index, changed);
    StartOrFadeMusic();
    StartOrStopSession(index);
    LastMode = FeedbackMode;
    DrawPlayerPanel();
    RefreshSessionButtons(false);
}

void StopFeedback() {
    if (FeedbackEnabled == Off || TrainingActive == Off)
        return;
    SendAppCommand(CmdStopScroll);
    StopMusicAndScenery();
}

} // namespace pulselark
