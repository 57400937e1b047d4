#include "feedback/ggz.h"

namespace pulselark {

void TickTraining() {}
void ApplyModeState() {}
void StopMusicAndScenery() {}
void RestoreScenery() {}

} // namespace pulselark
