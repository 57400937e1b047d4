#pragma once

#include "base/Controls.h"
#include "base/Numbers.h"

/// The music player. There is no player yet: its state is here, and the routines that would sound do nothing.
namespace pulselark {

extern Boolean Playing;          ///< the session's music runs; start 0
extern Boolean PlaySource;       ///< the play list is the source, not a song that is tried; start 0
extern Integer CurrentListIndex; ///< song of the play list that plays or is next, from 1; start 1
extern Boolean PlayerPanelOpen;  ///< the player's panel shows; start 0
extern Label labCurrentSong;     ///< the song line of the training view

/// The music plays; it is started anew first unless `keepPlayer` is set.
void PlayMusic(bool keepPlayer);

/// Ends a pause of the session: the player is stopped and started anew.
void RestartMusic();

/// Ends the music at once and keeps its position.
void StopSong();

/// Lets the music die away over four seconds.
void FadeOutMusic();

/// Takes over `AdjustVolume` as the player's volume.
void RestoreVolume();

/// Reads the names in the music folder.
void ScanMusicFolder();

/// Draws the player's panel.
void DrawPlayerPanel();

/// Takes over the name of the song into the song line.
void ShowCurrentSong();

/// Puts the above to its start values.
void ResetMusic();

} // namespace pulselark
