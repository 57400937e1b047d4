#pragma once

#include "base/Numbers.h"

/// The mouse work on the module panels: moving by the title bar, sizing by the right edge, the lower edge and
/// the corner, and the rectangles that a panel remembers. Panels are numbered 0 to 6; all lengths are twips.
/// A panel does not move during a drag: its outline does, and the release takes it over.
namespace pulselark {

extern float DragStartX, DragStartY; ///< the pointer in the title bar or sizer at the press

/// Whether panels may be moved and sized: not with `LockPanels`, nor in a recording with `LockScreens`.
bool LayoutMayChange();

/// The press in a title bar or on a sizer: the panel comes to the front and is the active one.
void PressPanel(int index, double x, double y);

/// Mouse on a panel's title bar, x and y within it; `button` 1 while the left one is down.
void DragPanel(int index, int button, double x, double y);
/// The release: the panel takes the place of the outline, and the layout is kept for the next start.
void EndDragPanel(int index);

/// Mouse on a panel's sizers, x and y within them.
void SizePanelCorner(int index, int button, double x, double y);
void SizePanelRight(int index, int button, double x, double y);
void SizePanelBottom(int index, int button, double x, double y);
void EndSizePanel(int index);

/// Escape: the drag that goes on is forgotten. Returns whether there was one.
bool CancelPanelDrag();

/// A whole move or sizing by the keyboard.
void MovePanelBy(int index, double dx, double dy);
void SizePanelBy(int index, double dx, double dy);

/// The next panel that shows (or with `step` -1 the one before) comes to the front and is the active one.
void ChooseNextPanel(int step);

/// To the grid of 10 pixels while `SnapPanels` is set and the value is less than the screen's width; else as
/// it is, a whole number of twips. Not held to 16 bits, since they end at 2184 pixels, in the middle of a
/// wide screen.
Long SnapToGrid(double value);

/// Shows or hides a panel; one that is shown comes to the front.
void ShowPanel(int index, bool shown);

/// Draws panel `index` anew for its present size. Any other index does nothing.
void OpenPanel(int index);

/// Panel 0 to 6, or 10 for the main window: its place goes to its row of `PanelRects`, or comes back from it.
/// An empty row brings a panel to the middle at half the window's size, the window to two thirds of the
/// screen; the window is asked to go there by `WindowToMove`.
void SavePanelRect(int index);
void RestorePanelRect(int index);
void ClearPanelRects();

/// The window's buttons: where window and panels stand is remembered, all at once; and everything that is
/// remembered comes back. While the layout is locked, or nothing is remembered, the second does nothing.
void KeepPlaces();
void BackToPlaces();
/// The same for one panel; without a remembered place it comes to the middle.
void BackToPlace(int index);

/// Holds every panel to the sizes and limits of a drag and to the size of the window, so that none is lost
/// whatever a file says or however small the window becomes.
void HoldPanelsInside();

/// Fills the work area with a panel, or brings it back to where it was.
void EnlargePanel(int index);
/// Whether a panel fills the work area.
bool PanelEnlarged(int index);

} // namespace pulselark
