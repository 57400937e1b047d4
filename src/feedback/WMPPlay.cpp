#include "feedback/WMPPlay.h"

#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Settings.h"

#include <algorithm>
#include <vector>

namespace pulselark {

Series<std::string, MostSongs> SongList;
Integer SelectedSong, SelectedListRow, CurrentListIndex;
Boolean PlaySource, Playing, PausedBetweenSongs, PlayerPanelOpen;
Integer PlayerVolume, FadeStep;
double SongPosition, LastPosition;
Label labCurrentSong, imMusicOff;
void (*MusicChanged)() = nullptr;

namespace {

constexpr Integer FadeSteps = 16;

MediaControl& WMP() {
    return ThePlatform().MediaControl;
}

void EndFade() {
    timFadeOut.Enabled = false;
    FadeStep = 0;
}

// Starts a song where the last one was left.
void LoadSong(const std::string& name) {
    const Integer failure = WMP().Load(ProgramFolder() + "/Music/" + name);
    if (failure != 0)
        throw Failure{failure};
    RestorePosition();
    PausedBetweenSongs = Off;
}

void PlayListSong() {
    const std::string& song = PlayList.at(CurrentListIndex);
    if (FilledListRows() < 1 || AutoPlayMusic == Off || song.empty() || Playing != Off)
        return;
    EndFade();
    RestoreVolume();
    LoadSong(song);
    imMusicOff.Visible = false;
    Playing = On;
    timPlayerCheck.Enabled = true;
    ShowCurrentSong();
}

void TrySelectedSong() {
    const std::string& song = SongList.at(SelectedSong);
    EndFade();
    if (!song.empty())
        LoadSong(song);
    RestoreVolume();
    imMusicOff.Visible = false;
    timPlayerCheck.Enabled = false;
}

void NextSongAfterPause() {
    PlaySource = On;
    timPlayerCheck.Enabled = false;
    RewindSong();
    timPause.Enabled = true;
    PausedBetweenSongs = On;
    ShowCurrentSong();
}

void PlayerCheckTick() {
    if (!SongEnded())
        return;
    Playing = Off;
    ++CurrentListIndex;
    if (CurrentListIndex > FilledListRows())
        CurrentListIndex = 1;
    if (CurrentListIndex > 1 || AutoRepeat != Off) {
        NextSongAfterPause();
    } else {
        timPlayerCheck.Enabled = false;
        PlaySource = Off;
    }
    DrawPlayerPanel();
}

// Sixteen steps from the player's volume down; then the song stops and the volume is what it was.
void FadeOutTick() {
    static int volume = 0;
    if (FadeStep == 0)
        volume = PlayerVolume;
    if (FadeStep < FadeSteps) {
        const auto step = static_cast<int>(Round(PlayerVolume / static_cast<double>(FadeSteps)));
        volume = std::clamp(volume - step, 0, 100);
        SetVolume(imMusicOff.Visible ? 0 : volume);
        ++FadeStep;
        RememberPosition();
        return;
    }
    StopSong();
    timPlayerCheck.Enabled = timFadeOut.Enabled = false;
    FadeStep = 0;
    RestoreVolume();
    imMusicOff.Visible = false;
    if (FeedbackEnabled != Off)
        RestorePosition();
    else
        RewindSong();
    DrawPlayerPanel();
}

void UnblockTick() {
    timBlockMovieCommands.Enabled = false;
    MovieCommandsBlocked = Off;
}

} // namespace

void ScanMusicFolder() {
    for (int row = 1; row <= ShownSongs; ++row)
        SongList[row].clear();
    std::vector<std::string> names;
    ThePlatform().Files.ListFolder(ProgramFolder() + "/Music", "", names);
    const auto count = static_cast<int>(std::min<std::size_t>(names.size(), ShownSongs));
    for (int row = 1; row <= count; ++row)
        SongList[row] = names[static_cast<std::size_t>(row - 1)];
}

int FilledListRows() {
    int rows = 0;
    while (rows < PlayListRows && !PlayList[rows + 1].empty())
        ++rows;
    return rows;
}

bool PlayMusic() {
    bool played = true;
    if (CurrentListIndex > FilledListRows() || CurrentListIndex < 1)
        CurrentListIndex = 1;
    try {
        if (PlaySource != Off)
            PlayListSong();
        else
            TrySelectedSong();
    } catch (const Failure&) {
        ThePlatform().Messages.Show(LanguageText(TextPlayerFailed), ButtonOK);
        played = false;
    }
    DrawPlayerPanel();
    return played;
}

void PlayMusic(bool keepPlayer) {
    if (PlaySource == Off)
        return;
    if (!keepPlayer) {
        StopSong();
        RewindSong();
    }
    PlayMusic();
}

void RestartMusic() {
    timPause.Enabled = false;
    PausedBetweenSongs = Off;
    MovieCommandsBlocked = On;
    timBlockMovieCommands.Enabled = true;
    RewindSong();
    ShowCurrentSong();
    PlayMusic();
    timPlayerCheck.Enabled = true;
}

void RewindSong() {
    WMP().SetPosition(0);
    SongEnded();
    RememberPosition();
}

void StopSong() {
    RememberPosition();
    WMP().Stop();
    timPause.Enabled = false;
    Playing = Off;
}

bool SongEnded() {
    constexpr double LastSecond = 1, StallShare = 0.75;
    const double position = WMP().Position();
    const double duration = WMP().Duration();
    const bool atEnd = position >= duration - LastSecond && duration > 0;
    const bool stalled = position == LastPosition && duration * StallShare > LastPosition;
    if (atEnd || stalled) {
        StopSong();
        LastPosition = 0;
        return true;
    }
    LastPosition = position;
    return false;
}

void FadeOutMusic() {
    EndPauseBetweenSongs();
    if (Playing == Off || timFadeOut.Enabled)
        return;
    FadeStep = 0;
    timFadeOut.Enabled = true;
}

void EndPauseBetweenSongs() {
    if (PausedBetweenSongs == Off)
        return;
    PausedBetweenSongs = Off;
    timPause.Enabled = false;
    ShowCurrentSong();
}

void StopMusicAtOnce() {
    EndPauseBetweenSongs();
    EndFade();
    if (Playing != Off)
        StopSong();
    timPlayerCheck.Enabled = false;
    SongPosition = 0;
    DrawPlayerPanel();
}

void StopByHand() {
    EndPauseBetweenSongs();
    EndFade();
    StopSong();
    timPlayerCheck.Enabled = false;
}

void GoToListSong(Integer row) {
    if (row != CurrentListIndex)
        SongPosition = 0;
    CurrentListIndex = row;
}

void SetVolume(int volume) {
    WMP().SetVolume(volume);
}

void RestoreVolume() {
    SetVolume(PlayerVolume);
}

void RememberPosition() {
    SongPosition = WMP().Position();
}

void RestorePosition() {
    WMP().SetPosition(SongPosition);
}

void AdjustMusicVolume(Integer volume) {
    AdjustVolume = PlayerVolume = std::clamp<Integer>(volume, 0, 100);
    imMusicOff.Visible = false;
    RestoreVolume();
    DrawPlayerPanel();
}

void ToggleMute() {
    imMusicOff.Visible = !imMusicOff.Visible;
    if (imMusicOff.Visible)
        SetVolume(0);
    else
        RestoreVolume();
    DrawPlayerPanel();
}

void DrawPlayerPanel() {
    if (MusicChanged != nullptr)
        MusicChanged();
}

void ShowCurrentSong() {
    if (PausedBetweenSongs != Off)
        labCurrentSong.Caption = LanguageText(TextPlayerPause);
    else
        labCurrentSong.Caption = Playing != Off || PlaySource != Off ? PlayList.at(CurrentListIndex) : "";
    labCurrentSong.Visible = !labCurrentSong.Caption.empty();
}

void InstallMusicTimers() {
    timPlayerCheck.Handler = &PlayerCheckTick;
    timFadeOut.Handler = &FadeOutTick;
    timPause.Handler = &RestartMusic;
    timBlockMovieCommands.Handler = &UnblockTick;
}

void ResetMusic() {
    SongList.Fill({});
    SelectedSong = SelectedListRow = CurrentListIndex = 1;
    PlaySource = Playing = PausedBetweenSongs = PlayerPanelOpen = Off;
    PlayerVolume = 50;
    FadeStep = 0;
    SongPosition = LastPosition = 0;
    labCurrentSong = imMusicOff = {};
}

} // namespace pulselark
