#pragma once

#include "base/Numbers.h"

#include <array>

/// Where the module panels and the windows around them stand. All lengths are twips, 15 to the pixel.
namespace pulselark {

inline constexpr int ModulePanelCount = 7; ///< ECG, spectrum, coherence, history, HRV, quick scan, training
inline constexpr int CanvasRow = 10;       ///< the canvas window's row in the arrays below
inline constexpr int PanelRows = CanvasRow + 1;

/// Place of a panel or a window.
struct PanelPlace {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    Boolean Visible = Off;

    bool operator==(const PanelPlace&) const = default;
};

extern std::array<PanelPlace, ModulePanelCount> picModule;
extern PanelPlace frmCanvas; ///< the main window
extern PanelPlace frmScale;  ///< the overlay that carries the outline of a drag

// Per panel, as stored in a configuration.
extern std::array<Integer, PanelRows> PanelVisible, PanelStyle, PanelOnCanvas;

/// Remembered rectangles: left, top, width, height, and in column 6 the visibility; a width of 0 marks an
/// empty row. Screens are wider than 16 bits of twips.
extern std::array<std::array<Long, 7>, PanelRows> PanelRects;

/// A configuration as the view menu's small picture shows it; rows 0 to 6 and 10 are filled.
struct PreviewPlace {
    Integer Left = 0;
    Integer Top = 0;
    Integer Height = 0;
    Integer Width = 0;
    Boolean Visible = Off;
    Integer Style = 0;
    Integer OnCanvas = 0;

    bool operator==(const PreviewPlace&) const = default;
};
extern std::array<PreviewPlace, PanelRows> ConfigPreview;

inline constexpr float MinPanelWidth = 160 * 15; ///< smallest panel
inline constexpr float MinPanelHeight = 80 * 15;
inline constexpr float LargePanelWidth = 480 * 15; ///< default size of a large panel
inline constexpr float LargePanelHeight = 240 * 15;

/// The window around the panels, as it is now.
struct WorkspaceMetrics {
    float TopBarHeight = 48 * 15; ///< of picTopBarMain
    float StatusHeight = 28 * 15; ///< of the status line
    float TitleHeight = 28 * 15;  ///< of a panel's picTopBar
    float ModeBarWidth = 72 * 15; ///< of a panel's picCMAll, the marks at the right of its title bar
    float ScreenWidth = 1920 * 15;
    float Gap = 12 * 15; ///< between panels of the built-in layout, and around them
};
extern WorkspaceMetrics Workspace;

/// Parts of the canvas window, in twips within it: the bar at its top, the grip in its corner, and its own
/// buttons at the right end of the bar.
enum ControlButton : int {
    ControlKeepPlaces, ///< remembers where window and panels stand
    ControlBackToPlaces,
    ControlMinimise,
    ControlMaximise, ///< or back to the former size
    ControlClose,
};
inline constexpr std::size_t ControlButtonCount = 5;
inline constexpr float ControlButtonSize = 24 * 15; ///< at most; a lower bar has lower buttons
extern PanelPlace picCanvasTop;
extern PanelPlace picCanvasGrip;
extern std::array<PanelPlace, ControlButtonCount> picCtrl; ///< in the order above

/// The panels have been placed anew, for a window of the size of `frmScale` unless it is the built-in layout;
/// whoever knows the window's bars fits them in and clears this.
extern bool LayoutLoaded;

/// The window is to take the place of `frmScale`; the window clears this.
extern bool WindowToMove;

/// Where a panel that fills the work area stood before; a width of 0 for one that does not.
extern std::array<PanelPlace, ModulePanelCount> PlaceBeforeEnlarging;

/// The outline of a panel that is being moved or sized, at its new place; `Visible` while a drag goes on.
extern PanelPlace DragOutline;

/// Place of the scenery in the training view, within the main window; a width of 0 for none.
extern PanelPlace picGamePlace;

/// Panels from the hindmost to the foremost.
extern std::array<int, ModulePanelCount> PanelOrder;

/// The panel that the keyboard moves, and that is worked in; -1 for none.
extern int ActivePanel;

inline constexpr int ScanPanelIndex = 5;

/// Panel `index` becomes the foremost and the one that is worked in.
void BringPanelToFront(int index);

/// The place of each panel in the built-in layout, on a window of 1024 x 738 pixels.
const std::array<PanelPlace, ModulePanelCount>& BuiltInPlaces();

/// Puts the panels to their built-in places and empties what is remembered.
void ResetModulePanels();

} // namespace pulselark
