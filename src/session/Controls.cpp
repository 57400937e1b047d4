#include "session/Controls.h"

#include "analysis/CoherencePanel.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/SpectrumPanel.h"
#include "persistence/Configuration.h"
#include "quickscan/QsPage.h"
#include "session/MainBuffers.h"
#include "session/ModulePanels.h"
#include "session/RedrawPanels.h"
#include "session/Settings.h"

#include <algorithm>

namespace pulselark {

float DragStartX = 0;
float DragStartY = 0;

namespace {

constexpr double TwipsPerPixelX = 15;
constexpr double Margin = 40 * TwipsPerPixelX;      // of a panel stays inside at either side
constexpr double TopBarMargin = 5 * TwipsPerPixelX; // between the top bar and a panel

bool IsPanel(int index) {
    return index >= 0 && index < ModulePanelCount;
}

PanelPlace& PanelAt(int index) {
    return picModule[static_cast<std::size_t>(index)];
}

// The lower limit first, then the upper one, then the grid.
float Held(double value, double least, double most) {
    return static_cast<float>(SnapToGrid(std::min(std::max(value, least), most)));
}

// A panel keeps 40 pixels and the marks of its title bar inside at the left.
float LeastLeft(const PanelPlace& panel) {
    return Workspace.ModeBarWidth - (panel.Width + static_cast<float>(Margin));
}

void PlaceOutline(int index, double left, double top) {
    const PanelPlace& panel = PanelAt(index);
    DragOutline = panel;
    DragOutline.Left = Held(left, LeastLeft(panel), frmCanvas.Width - Margin);
    DragOutline.Top =
        Held(top, Workspace.TopBarHeight + TopBarMargin, frmCanvas.Height - Workspace.TitleHeight);
    DragOutline.Visible = On;
}

void SizeOutline(int index, double width, double height) {
    DragOutline = PanelAt(index);
    DragOutline.Width = static_cast<float>(SnapToGrid(std::max<double>(width, MinPanelWidth)));
    DragOutline.Height = static_cast<float>(SnapToGrid(std::max<double>(height, MinPanelHeight)));
    DragOutline.Visible = On;
}

void SizeBy(int index, int button, double dx, double dy) {
    if (!IsPanel(index) || button != 1 || !LayoutMayChange())
        return;
    SizeOutline(index, PanelAt(index).Width + dx, PanelAt(index).Height + dy);
}

// The panel takes over the outline. Returns whether there was one.
bool TakeOutline(int index) {
    if (!IsPanel(index) || DragOutline.Visible == Off)
        return false;
    const Boolean shown = PanelAt(index).Visible;
    PanelAt(index) = DragOutline;
    PanelAt(index).Visible = shown;
    DragOutline = {};
    return true;
}

void KeepLayout() {
    if (TrainingActive == Off)
        SaveConfig(PreviousConfig);
}

} // namespace

bool LayoutMayChange() {
    const bool locked = SessionRunning != Off && LockScreens != Off;
    return LockPanels == Off && !locked;
}

void PressPanel(int index, double x, double y) {
    if (!IsPanel(index))
        return;
    BringPanelToFront(index);
    DragStartX = static_cast<float>(x);
    DragStartY = static_cast<float>(y);
}

void DragPanel(int index, int button, double x, double y) {
    if (!IsPanel(index) || button != 1 || !LayoutMayChange())
        return;
    const PanelPlace& panel = PanelAt(index);
    PlaceOutline(index, x - DragStartX + panel.Left, y - DragStartY + panel.Top);
}

void EndDragPanel(int index) {
    if (TakeOutline(index))
        KeepLayout();
}

void SizePanelCorner(int index, int button, double x, double y) {
    SizeBy(index, button, x - DragStartX, y - DragStartY);
}

void SizePanelRight(int index, int button, double x, double /*y*/) {
    SizeBy(index, button, x - DragStartX, 0);
}

void SizePanelBottom(int index, int button, double /*x*/, double y) {
    SizeBy(index, button, 0, y - DragStartY);
}

void EndSizePanel(int index) {
    if (!TakeOutline(index))
        return;
    OpenPanel(index);
    KeepLayout();
}

bool CancelPanelDrag() {
    const bool dragged = DragOutline.Visible != Off;
    DragOutline = {};
    return dragged;
}

void MovePanelBy(int index, double dx, double dy) {
    if (!IsPanel(index) || !LayoutMayChange())
        return;
    PlaceOutline(index, PanelAt(index).Left + dx, PanelAt(index).Top + dy);
    EndDragPanel(index);
}

void SizePanelBy(int index, double dx, double dy) {
    SizeBy(index, 1, dx, dy);
    EndSizePanel(index);
}

void ChooseNextPanel(int step) {
    int index = ActivePanel;
    for (int tried = 0; tried < ModulePanelCount; ++tried) {
        index = index < 0 && step < 0 ? ModulePanelCount - 1
                                      : (index + step + ModulePanelCount) % ModulePanelCount;
        if (PanelAt(index).Visible != Off) {
            BringPanelToFront(index);
            return;
        }
    }
}

Long SnapToGrid(double value) {
    constexpr double Grid = 10 * TwipsPerPixelX;
    const bool snaps = SnapPanels != Off && value < Workspace.ScreenWidth;
    return static_cast<Long>(Round(snaps ? static_cast<double>(Round(value / Grid)) * Grid : value));
}

void ShowPanel(int index, bool shown) {
    if (!IsPanel(index))
        return;
    PanelAt(index).Visible = ToBoolean(shown);
    PanelVisible[static_cast<std::size_t>(index)] = ToBoolean(shown);
    if (shown) {
        BringPanelToFront(index);
        OpenPanel(index);
    } else if (ActivePanel == index) {
        ActivePanel = -1;
    }
    KeepLayout();
}

void OpenPanel(int index) {
    const Long second = SessionRunning != Off ? std::max(RecordedSeconds, SessionTick) : SessionTick;
    switch (index) {
    case 0:
        OpenEcgPanel(true);
        break;
    case 1:
        OpenSpectrumPanel(true);
        break;
    case 2:
        OpenCoherencePanel(true);
        break;
    case 3:
        OpenHistoryAt(SessionRunning != Off ? second : AnalysisSecond);
        break;
    case 4:
        OpenHrvPanel(true);
        break;
    case ScanPanelIndex:
        OpenQuickScanPanel();
        break;
    default: // the training panel is an empty frame so far
        break;
    }
}

void SavePanelRect(int index) {
    if (!IsPanel(index) && index != CanvasRow)
        return;
    const PanelPlace& place = index == CanvasRow ? frmCanvas : PanelAt(index);
    auto& row = PanelRects[static_cast<std::size_t>(index)];
    row[0] = static_cast<Long>(Round(place.Left));
    row[1] = static_cast<Long>(Round(place.Top));
    row[2] = static_cast<Long>(Round(place.Width));
    row[3] = static_cast<Long>(Round(place.Height));
    row[6] = index == CanvasRow ? row[6] : place.Visible;
}

void RestorePanelRect(int index) {
    if (!IsPanel(index) && index != CanvasRow)
        return;
    const auto& row = PanelRects[static_cast<std::size_t>(index)];
    const PanelPlace remembered{static_cast<float>(row[0]), static_cast<float>(row[1]),
                                static_cast<float>(row[2]), static_cast<float>(row[3]), On};
    if (index == CanvasRow) {
        const float width = Workspace.ScreenWidth;
        const float height = Workspace.ScreenWidth * 9 / 16;
        frmScale =
            row[2] != 0 ? remembered : PanelPlace{width / 6, height / 6, width * 2 / 3, height * 2 / 3, On};
        WindowToMove = true;
        return;
    }
    const Boolean shown = PanelAt(index).Visible;
    PanelAt(index) = row[2] != 0 ? remembered
                                 : PanelPlace{frmCanvas.Width / 4, frmCanvas.Height / 4, frmCanvas.Width / 2,
                                              frmCanvas.Height / 2, On};
    PanelAt(index).Visible = shown;
    OpenPanel(index);
    BringPanelToFront(index);
}

void ClearPanelRects() {
    PanelRects = {};
}

void KeepPlaces() {
    for (int i = 0; i < ModulePanelCount; ++i)
        SavePanelRect(i);
    SavePanelRect(CanvasRow);
}

void BackToPlaces() {
    if (!LayoutMayChange() || PanelRects[CanvasRow][2] == 0)
        return;
    RestorePanelRect(CanvasRow);
    LayoutLoaded = true; // the panels belong to the window of then
    const std::array<int, ModulePanelCount> order = PanelOrder;
    const int active = ActivePanel;
    for (const int index : order) {
        const auto row = static_cast<std::size_t>(index);
        if (PanelRects[row][2] == 0)
            continue;
        PlaceBeforeEnlarging[row] = {};
        RestorePanelRect(index);
        PanelAt(index).Visible = PanelVisible[row] = ToBoolean(PanelRects[row][6] != 0);
    }
    ActivePanel = active >= 0 && PanelAt(active).Visible != Off ? active : -1;
    KeepLayout();
}

void BackToPlace(int index) {
    if (!IsPanel(index) || !LayoutMayChange())
        return;
    PlaceBeforeEnlarging[static_cast<std::size_t>(index)] = {};
    RestorePanelRect(index);
    KeepLayout();
}

void HoldPanelsInside() {
    for (PanelPlace& panel : picModule) {
        panel.Width = std::max(MinPanelWidth, std::min(panel.Width, frmCanvas.Width));
        panel.Height = std::max(MinPanelHeight, std::min(panel.Height, frmCanvas.Height));
        panel.Left =
            std::min(std::max(panel.Left, LeastLeft(panel)), frmCanvas.Width - static_cast<float>(Margin));
        panel.Top =
            std::min(std::max(panel.Top, Workspace.TopBarHeight), frmCanvas.Height - Workspace.TitleHeight);
    }
}

void EnlargePanel(int index) {
    if (!IsPanel(index) || !LayoutMayChange())
        return;
    PanelPlace& panel = PanelAt(index);
    PanelPlace& before = PlaceBeforeEnlarging[static_cast<std::size_t>(index)];
    const Boolean shown = panel.Visible;
    if (PanelEnlarged(index)) {
        panel = before;
        panel.Visible = shown;
        before = {};
    } else {
        before = panel;
        panel.Left = Workspace.Gap;
        panel.Top = Workspace.TopBarHeight + Workspace.Gap;
        panel.Width = frmCanvas.Width - 2 * Workspace.Gap;
        panel.Height = frmCanvas.Height - Workspace.TopBarHeight - Workspace.StatusHeight - 2 * Workspace.Gap;
    }
    OpenPanel(index);
    BringPanelToFront(index);
    KeepLayout();
}

bool PanelEnlarged(int index) {
    return IsPanel(index) && PlaceBeforeEnlarging[static_cast<std::size_t>(index)].Width != 0;
}

} // namespace pulselark
