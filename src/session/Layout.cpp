#include "session/Layout.h"

#include "feedback/SendAppData.h"
#include "session/ModulePanels.h"
#include "session/RedrawPanels.h"

namespace pulselark {

namespace {

constexpr double TwipsToThePixel = 15;

} // namespace

void DefaultLayout() {
    const PanelPlace overlay = frmScale;
    ResetModulePanels();
    frmScale = overlay;
    LayoutCanvas();
    OpenAllPanels(true);
}

void LayoutCanvas() {
    const WorkspaceMetrics& room = Workspace;
    const float lost = 2 * room.Gap;
    SceneRect = {(room.WindowLeft + room.Gap) / TwipsToThePixel,
                 (room.WindowTop + room.TopBarHeight + room.Gap) / TwipsToThePixel,
                 (frmCanvas.Width - lost) / TwipsToThePixel,
                 (frmCanvas.Height - room.TopBarHeight - room.StatusHeight - lost) / TwipsToThePixel};
}

} // namespace pulselark
