#pragma once

#include "base/Controls.h"
#include "base/Series.h"

#include <string>

/// Music under a session: songs of the folder `Music`, played in the order of a play list, faded out at the
/// end. The list itself and the wishes (`AutoPlayMusic`, `AlwaysFirstSong`, `AutoRepeat`, `AdjustVolume`) are
/// settings.
namespace pulselark {

inline constexpr int ShownSongs = 7; ///< rows of both columns of the player's panel
inline constexpr int MostSongs = 100;

extern Series<std::string, MostSongs> SongList; ///< names found in the folder, 1 to 7 are filled
extern Integer SelectedSong, SelectedListRow;   ///< selected row of each column, from 1; start 1
extern Integer CurrentListIndex;   ///< song of the play list that plays or is next, from 1; start 1
extern Boolean PlaySource;         ///< the play list is the source, not a song that is tried; start 0
extern Boolean Playing;            ///< the session's music runs; start 0
extern Boolean PausedBetweenSongs; ///< in the 5 seconds between two songs; start 0
extern Integer PlayerVolume;       ///< 0 to 100; start 50
extern double SongPosition;        ///< remembered position, seconds; start 0
extern double LastPosition;        ///< position at the last end-of-song check, seconds; start 0
extern Integer FadeStep;           ///< 0 to 16; start 0
extern Boolean PlayerPanelOpen;    ///< the player's panel shows; start 0
extern Label labCurrentSong;       ///< the song line of the training view
extern Label imMusicOff;           ///< the mark of a muted player; `Visible` says so

/// What the music changes on the screen: the player's panel and the song line. Nobody by default.
extern void (*MusicChanged)();

/// Fills `SongList` with the first 7 names of the music folder; a folder that cannot be read gives none.
void ScanMusicFolder();
/// Rows of the play list that are filled, 0 to 8.
int FilledListRows();

/// Starts the song that is due: of the play list if that is the source, music is wanted and none plays, else
/// the song that is tried. A song that cannot be played gives a message and the result false; the session
/// goes on in silence.
bool PlayMusic();
/// The same at the start of a replay, if the music of the session is active; from the song's beginning unless
/// `keepPlayer` is set.
void PlayMusic(bool keepPlayer);
/// Ends the pause between two songs, or of the session.
void RestartMusic();

void RewindSong();
/// Ends the music at once and keeps its position.
void StopSong();
/// Whether the song has come to its end, or the player has stopped by itself before three quarters of it. To
/// be asked each 250 ms; an end stops the song.
bool SongEnded();
/// Lets the music die away over four seconds. In the pause between two songs no other one follows.
void FadeOutMusic();
/// The pause between two songs ends without the next one.
void EndPauseBetweenSongs();
/// Ends the music without a fade, for good: the next start begins at the song's beginning.
void StopMusicAtOnce();
/// The user stops the song. It has not come to its end, so that the next one of the list does not follow it.
void StopByHand();
/// Song `row` of the play list is the next; another song than the current one starts at its beginning.
void GoToListSong(Integer row);

void SetVolume(int volume);
void RestoreVolume(); ///< `PlayerVolume` again
void RememberPosition();
void RestorePosition();
/// Moves the volume knob: `AdjustVolume` and `PlayerVolume`.
void AdjustMusicVolume(Integer volume);
/// Mutes, or sounds again.
void ToggleMute();

/// Draws the player's panel, if anybody shows it.
void DrawPlayerPanel();
/// The song line: the current song of the play list, or the word for the pause between two.
void ShowCurrentSong();

/// Gives the music's timers their handlers.
void InstallMusicTimers();
/// Puts the above to its start values.
void ResetMusic();

} // namespace pulselark
