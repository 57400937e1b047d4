#pragma once

#include "base/Numbers.h"

/// Moving the cursor through a session by hand.
namespace pulselark {

/// Mouse on an ECG panel of the given width and height; x from the left, y upwards, in panel units.
/// `button` 0, movement without a button, anchors the drag and chooses its speed by the height: row 0 at the
/// bottom is 1 second a step, row 1 is 5, row 2 at the top 30. `button` 1 drags: the cursor moves, held
/// within 1 and `SessionSeconds`, and a new second other than 1 is analysed and drawn.
void SeekByEcgPanel(int button, double x, double y, double width, double height);

/// Press on an ECG panel: ends a running replay.
void PressEcgPanel();

/// Release of the mouse on an ECG panel: both are drawn once more, and the training takes its second.
void ReleaseEcgPanel();

/// The cursor goes to `second`, held within 1 and `SessionSeconds`, as by a whole drag. Without a session
/// nothing happens.
void SeekToSecond(Long second);

/// Whether a seek may recalculate now: no file routine, no rescan, no recording whose screens are locked.
bool SeekAllowed();

} // namespace pulselark
