#include "feedback/ggz.h"

namespace pulselark {

void TickTraining() {}
void ApplyModeState() {}
void StopMusicAndScenery() {}
void PlayMusic(bool /*keepPlayer*/) {}
void RestoreScenery() {}

} // namespace pulselark
