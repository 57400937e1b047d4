#pragma once

#include "persistence/TextRecords.h"

#include <string>
#include <string_view>

/// The session file, `.hti`: samples and beat intervals, one value to a line; everything else is recomputed
/// after a load. In the order of the lines, with N the length in seconds:
///
///     1          text "PulseLark", never tested
///     2          N
///     3          channel mode 1, 2 or 3
///     4 to 12    "future use"
///     13 to 33   SessionInfo 0 to 20
///     N lines    IbiA, s
///     N lines    IbiB, s; 0 in a one-channel session
///     128 N      EcgA, panel units
///     128 N      EcgB; 1 in a one-channel session
namespace pulselark {

inline constexpr const char* SessionFileFilter = "PulseLark channel data (*.hti)|*.hti";

/// Longest session that the buffers hold, in seconds.
inline constexpr Long LongestSession = 3601;

/// Fills the buffers, `SessionInfo`, `SessionSeconds` and `ChannelMode` from the text of a session file,
/// under the progress form. Line 3 counts only if it is the number 1 or 2, quoted or not; else `ChannelMode`
/// stays. The fill values of a one-channel session are taken as they stand.
///
/// Failures: 62 the text ends early; 13 text where a number belongs; 6 a number that does not fit; 9 more
/// seconds than the buffers hold, or less than none, and `SessionSeconds` is 0 then. What was read before a
/// failure stays.
FileOutcome ReadSessionText(std::string_view text);

/// The text of the session in the buffers. Channel B goes into it with `ChannelBPresent`; without, its lines
/// hold the fill values.
std::string SessionText();

} // namespace pulselark
