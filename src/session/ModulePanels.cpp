#include "session/ModulePanels.h"

#include <algorithm>
#include <cstddef>

namespace pulselark {

std::array<PanelPlace, ModulePanelCount> picModule;
PanelPlace frmCanvas;
PanelPlace frmScale;
std::array<Integer, PanelRows> PanelVisible, PanelStyle, PanelOnCanvas;
std::array<std::array<Long, 7>, PanelRows> PanelRects;
std::array<PreviewPlace, PanelRows> ConfigPreview;
WorkspaceMetrics Workspace;
PanelPlace picCanvasTop;
PanelPlace picCanvasGrip;
std::array<PanelPlace, ControlButtonCount> picCtrl;
bool LayoutLoaded = false;
bool WindowToMove = false;
std::array<PanelPlace, ModulePanelCount> PlaceBeforeEnlarging;
PanelPlace DragOutline;
PanelPlace picGamePlace;
std::array<int, ModulePanelCount> PanelOrder{0, 1, 2, 3, 4, 5, 6};
int ActivePanel = -1;

namespace {

constexpr std::array<PanelPlace, ModulePanelCount> BuiltIn{{{150, 600, 5100, 2250, On},
                                                            {150, 3000, 5100, 3000, On},
                                                            {5400, 600, 9450, 4200, On},
                                                            {5400, 4950, 9450, 4200, On},
                                                            {150, 6150, 5100, 3000, On},
                                                            {6000, 1650, 4650, 7050, Off},
                                                            {6200, 1850, 4850, 7250, Off}}};

} // namespace

const std::array<PanelPlace, ModulePanelCount>& BuiltInPlaces() {
    return BuiltIn;
}

void BringPanelToFront(int index) {
    const auto place = std::find(PanelOrder.begin(), PanelOrder.end(), index);
    std::rotate(place, place + 1, PanelOrder.end());
    ActivePanel = index;
}

void ResetModulePanels() {
    picModule = BuiltIn;
    frmCanvas = {0, 0, 15360, 11070, On};
    frmScale = {};
    PanelVisible = PanelStyle = PanelOnCanvas = {};
    for (std::size_t i = 0; i < BuiltIn.size(); ++i) {
        const bool shown = BuiltIn[i].Visible != Off;
        PanelVisible[i] = ToBoolean(shown);
        PanelStyle[i] = PanelOnCanvas[i] = shown ? 1 : 0;
    }
    PanelRects = {};
    PlaceBeforeEnlarging = {};
    LayoutLoaded = WindowToMove = false;
    DragOutline = {};
    picGamePlace = {};
    PanelOrder = {0, 1, 2, 3, 4, 5, 6};
    ActivePanel = -1;
}

} // namespace pulselark
