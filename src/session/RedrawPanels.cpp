#include "session/RedrawPanels.h"

#include "analysis/InputCD.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"
#include "session/SessionTick.h"

namespace pulselark {

void RedrawAllPanels() {
    RedrawEcg(*picIA, *picIB, RecordedSeconds);
    DrawAnalysisPanels();
}

void OpenAllPanels(bool force) {
    if (SessionRunning != Off && LockScreens != Off && !force)
        return;
    OpenEcgPanel(true);
}

} // namespace pulselark
