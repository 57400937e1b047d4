#pragma once

#include <string>

/// The scan file, `.plx`: the figures of a quick scan, one value to a line as in the session file. It is for
/// other programs and for archives, and is only written.
///
///     1          text "PulseLark Scan"
///     2, 3       length in seconds, channel mode
///     4 to 6     title, date and time of the session's document, or "[no title]", "[no date]", "[no time]"
///     7          text "*** Channel A Scan ***"
///     8, 9       power of the low and of the high band, whole
///     10         low over high, two decimals
///     11         mean heart rate, beats per minute
///     12         mean coherence in percent
///     13 to 22   the ten bins of the coherence histogram
///     23         0, kept free
///     24 to 40   the same for channel B
///
/// The training's form: "PulseLark GGZ Scan", length, title, date, time, then the first five figures of
/// channel A and the session's score; 11 lines.
namespace pulselark {

inline constexpr const char* ScanFileFilter = "PulseLark scan (*.plx)|*.plx";

/// The text of the results as they stand.
std::string ScanText();
std::string TrainingScanText();

} // namespace pulselark
