#pragma once

/// The arrangement of the module panels and of the window around them.
namespace pulselark {

/// Puts panels and window to the built-in layout and draws the panels. The overlay `frmScale` stays where it
/// is.
void DefaultLayout();

/// Fills `SceneRect` for the window's present place and size: the scenery takes the room of the panels.
void LayoutCanvas();

} // namespace pulselark
