#include "session/Layout.h"

#include "session/ModulePanels.h"
#include "session/RedrawPanels.h"

namespace pulselark {

void DefaultLayout() {
    const PanelPlace overlay = frmScale;
    ResetModulePanels();
    frmScale = overlay;
    LayoutCanvas();
    OpenAllPanels(true);
}

void LayoutCanvas() {}

} // namespace pulselark
