#pragma once

/// All panels at once.
namespace pulselark {

/// Draws every panel for `RecordedSeconds`.
void RedrawAllPanels();

/// Lays out and paints the frame of every panel, then draws it for the cursor. During a recording with
/// `LockScreens`, only if `force`.
void OpenAllPanels(bool force);

} // namespace pulselark
