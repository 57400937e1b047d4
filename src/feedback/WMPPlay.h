#pragma once

/// The music player. There is no player yet, so nothing plays.
namespace pulselark {

/// The music plays; it is started anew first unless `keepPlayer` is set.
void PlayMusic(bool keepPlayer);

/// Ends a pause of the session: the player is stopped and started anew.
void RestartMusic();

} // namespace pulselark
