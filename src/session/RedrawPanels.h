#pragma once

#include "base/Numbers.h"

/// All panels at once.
namespace pulselark {

/// Draws every panel for `RecordedSeconds`.
void RedrawAllPanels();

/// Lays out the history panel and draws it up to `second`; at 0, without a session, its scales only.
void OpenHistoryAt(Long second);

/// Lays out and paints the frame of every panel, then draws it for the cursor. During a recording with
/// `LockScreens`, only if `force`.
void OpenAllPanels(bool force);

} // namespace pulselark
