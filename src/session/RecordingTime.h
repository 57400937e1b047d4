#pragma once

#include "base/Numbers.h"

/// The clock of a recording. The clock's readings are kept in 32 bits, as those of the multimedia clock are:
/// they wrap around after 49 days, and only their differences count.
namespace pulselark {

/// Start of the acquisition's due times, ms after the start of a recording.
inline constexpr Long FirstSecondDue = 250;
inline constexpr Long FirstHalfDue = 125;

extern Long NextSecondDue;   ///< clock at which the next second falls due; start 0
extern Long NextHalfDue;     ///< clock at which the next part of a second goes to the journal; start 0
extern Long AcquisitionTick; ///< acquisition ticks of this recording, from 1; start 0

/// The millisecond clock now.
Long ClockNow();

/// Milliseconds from one reading to a later one, across the wrap; negative if `later` is the earlier one.
Long MillisecondsBetween(Long earlier, Long later);

/// A reading so many milliseconds after another.
Long Later(Long reading, Long milliseconds);

/// Time of the session at a reading, ms: since the first start, less what was spent paused.
Long SessionMilliseconds(Long reading);

/// How many samples a channel has by then.
double SamplesByClock(Long reading);

/// Sets the pauses so that `reading` is the time at which a channel has `samples` samples.
void AnchorSession(Long reading, double samples);

/// Both due times as at a start of the recording at `reading`.
void SetFirstDueTimes(Long reading);

} // namespace pulselark
