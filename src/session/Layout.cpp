#include "session/Layout.h"

#include "session/ModulePanels.h"
#include "session/RedrawPanels.h"

#include <algorithm>

namespace pulselark {

void DefaultLayout() {
    const PanelPlace overlay = frmScale;
    ResetModulePanels();
    frmScale = overlay;
    LayoutLoaded = true;
    LayoutCanvas();
    OpenAllPanels(true);
}

void LayoutCanvas() {
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

} // namespace pulselark
