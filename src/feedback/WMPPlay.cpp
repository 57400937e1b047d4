#include "feedback/WMPPlay.h"

namespace pulselark {

Boolean Playing = Off;
Boolean PlaySource = Off;
Integer CurrentListIndex = 1;
Boolean PlayerPanelOpen = Off;
Label labCurrentSong;

void PlayMusic(bool /*keepPlayer*/) {}
void RestartMusic() {}
void StopSong() {}
void FadeOutMusic() {}
void RestoreVolume() {}
void ScanMusicFolder() {}
void DrawPlayerPanel() {}
void ShowCurrentSong() {}

void ResetMusic() {
    Playing = PlaySource = PlayerPanelOpen = Off;
    CurrentListIndex = 1;
    labCurrentSong = {};
}

} // namespace pulselark
