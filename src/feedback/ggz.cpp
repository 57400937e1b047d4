#include "feedback/ggz.h"

#include "session/MainControls.h"

namespace pulselark {

void TickTraining() {}
void ApplyModeState() {}
void StopMusicAndScenery() {
    timStopScrollGame.Enabled = true;
}
void RestoreScenery() {
    picRestoreGame.Visible = true;
}

} // namespace pulselark
