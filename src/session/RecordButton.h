#pragma once

#include "session/Replay.h"

namespace pulselark {

/// Release of `picStartSmp`. With the left button, outside training: asks the recording that runs to stop, to
/// be continued with `AllowMultiSessions`; otherwise starts one or continues the paused one. An unsaved
/// session that would be lost is asked about first. In training the mode buttons do this, and here nothing
/// happens; nor while a file routine is at work.
void ReleaseRecordButton(MouseButton button);

} // namespace pulselark
