#pragma once

#include "base/Numbers.h"

/// Whether the monitor of a recording gives samples. A loss is told on the status line and by a lamp in words
/// (`labConnection`); what would pretend that all is well stands still: the music dies away, no chord sounds,
/// the scenery does not scroll and the training's score waits. The recording itself goes on.
namespace pulselark {

extern Boolean ConnectionLost; ///< start 0

/// Without samples for so long the connection counts as lost, ms. A monitor that says so is believed at once.
inline constexpr Long SilenceOfALoss = 1500;

/// A recording begins, or goes on: the first samples are awaited.
void BeginConnection(Long now);

/// After each reading of the monitor: whether it said that it is connected, and whether there was a sample
/// that is not lost. Tells of a loss and of its end, and opens a monitor that stays silent anew every few
/// seconds.
void WatchConnection(Long now, bool connected, bool samplesCame);

/// Whether samples have come since the recording began or went on.
bool SamplesHaveCome();

/// The recording is over: the lamp goes out.
void EndConnection();

/// Puts the above to its start values.
void ResetConnection();

} // namespace pulselark
