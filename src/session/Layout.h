#pragma once

/// The arrangement of the module panels and of the window around them.
namespace pulselark {

/// Puts panels and window to the built-in layout and draws the panels. The overlay `frmScale` stays where it
/// is.
void DefaultLayout();

/// Places the parts of the canvas window for its present size: its bar, its size grip and its buttons
/// `picCtrl`. Fills `SceneRect`: the scenery takes its place in the training view, or else the room of the
/// panels.
void LayoutCanvas();

} // namespace pulselark
