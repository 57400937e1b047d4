#pragma once

#include "base/Numbers.h"

/// The acquisition tick of a live recording, every 20 ms: samples from the monitor into the buffers, beats to
/// the lamp, and once a second, by the clock, the second's tick.
///
/// Seconds fall due 250 ms after the start and every 1000 ms from there; by then the look-ahead of the search
/// for beats has passed for nearly all of the second before. A due second is processed when its last sample
/// has come, so that what is computed live is what is computed from the stored session.
namespace pulselark {

/// The handler of `timProcess`.
void ProcessTick();

/// Seconds of session time after which a recording ends by itself with `AutoEndSession`, once more are
/// recorded.
inline constexpr Long AutoEndSeconds = 270;

} // namespace pulselark
