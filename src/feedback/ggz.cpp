#include "feedback/ggz.h"

namespace pulselark {

double DynamicIndex = 0;

void TickTraining() {}
void ApplyModeState() {}
void StopMusicAndScenery() {}
void RestoreScenery() {}

} // namespace pulselark
