#include "session/Layout.h"

#include "feedback/SendAppData.h"
#include "session/MainBuffers.h"
#include "session/ModulePanels.h"
#include "session/RedrawPanels.h"

#include <algorithm>

namespace pulselark {

namespace {

constexpr double TwipsToThePixel = 15;

void PlaceBars() {
    constexpr float Margin = 8 * 15; // between the last button and the window's edge
    constexpr float GripSize = 16 * 15;
    picCanvasTop = {0, 0, frmCanvas.Width, Workspace.TopBarHeight, On};
    picCanvasGrip = {frmCanvas.Width - GripSize, frmCanvas.Height - GripSize, GripSize, GripSize, On};
    const float high = std::min(ControlButtonSize, Workspace.TopBarHeight);
    float right = frmCanvas.Width - Margin;
    for (std::size_t i = picCtrl.size(); i-- > 0;) {
        right -= ControlButtonSize;
        picCtrl[i] = {right, (Workspace.TopBarHeight - high) / 2, ControlButtonSize, high, On};
    }
}

void PlaceScene() {
    const WorkspaceMetrics& room = Workspace;
    if (TrainingActive != Off && picGamePlace.Width > 0) {
        SceneRect = {(frmCanvas.Left + picGamePlace.Left) / TwipsToThePixel,
                     (frmCanvas.Top + picGamePlace.Top) / TwipsToThePixel,
                     picGamePlace.Width / TwipsToThePixel, picGamePlace.Height / TwipsToThePixel};
        return;
    }
    const float lost = 2 * room.Gap;
    SceneRect = {(frmCanvas.Left + room.Gap) / TwipsToThePixel,
                 (frmCanvas.Top + room.TopBarHeight + room.Gap) / TwipsToThePixel,
                 (frmCanvas.Width - lost) / TwipsToThePixel,
                 (frmCanvas.Height - room.TopBarHeight - room.StatusHeight - lost) / TwipsToThePixel};
}

} // namespace

void DefaultLayout() {
    const PanelPlace overlay = frmScale;
    ResetModulePanels();
    frmScale = overlay;
    LayoutLoaded = true;
    LayoutCanvas();
    OpenAllPanels(true);
}

void LayoutCanvas() {
    PlaceBars();
    PlaceScene();
}

} // namespace pulselark
