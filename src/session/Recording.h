#pragma once

#include "base/Numbers.h"

/// Start and end of a live recording. What comes in between is the acquisition tick (Acquisition.h).
namespace pulselark {

/// Starts a recording, or continues a paused one: opens the monitor, empties the session unless it continues,
/// and lets the acquisition run. Without a monitor that opens nothing happens but a word on the status line.
void StartRecording();

/// Ends the recording; the monitor is closed a second later. Its data stay, unsaved. Without a recording the
/// buttons and the status line are set all the same.
void StopRecording();

/// The recording is to go on after a gap: zeros take its place on channel A, from the write index on in steps
/// of 32 samples. The last step reaches beyond the gap, and the first samples after it lie over that.
void FillResumeGap();

/// A session that was read back into the buffers, of `SessionSeconds` whole seconds, counts as a recording
/// that was paused just now, so that the next start continues it.
void PauseAsRecorded();

} // namespace pulselark
