#pragma once

#include "base/Numbers.h"
#include "session/MainBuffers.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The journal of a recording: a file that only grows while the session is recorded, so that a program that
/// is killed, or a machine that loses its power, leaves all but the last moments behind.
///
///     a line of text     what the file is, ending with a line feed
///     records            each: 1 byte kind, 4 bytes length of the body, the body, 4 bytes CRC-32 (ISO-HDLC)
///                        of all that; whole numbers are little-endian, reals are 32 bits
///
/// Kinds: 'H' the session (first and once), 'A' and 'B' samples of a channel: index of the first, then the
/// samples; 'I' intervals: the first second, then A and B in turn. Samples and intervals may be written
/// again; the last ones count. What follows the first record that is not whole, or not right, is torn and
/// counts for nothing.
namespace pulselark {

inline constexpr const char* JournalExtension = ".journal";
inline constexpr const char* JournalPrefix = ".recording-";

/// What stands at the head of a journal.
struct JournalHead {
    std::string Date, Time; ///< of its start, as the user reads them
    std::string Monitor;
    Integer Mode = 2; ///< channel mode
    SessionFields Info;
};

/// What a journal holds.
struct JournalContent {
    JournalHead Head;
    std::vector<float> EcgA, EcgB; ///< from the session's first sample on; B empty if it was not recorded
    std::vector<float> IbiA, IbiB; ///< from second 1 on
    std::size_t WholeBytes = 0;    ///< bytes before a torn end
};

/// The beginning of a journal.
std::string JournalStart(const JournalHead& head);

/// Appends a record of samples: `channel` 'A' or 'B', `first` the index of the first from 1.
void AppendSamples(std::string& journal, char channel, Long first, std::span<const float> samples);

/// Appends a record of intervals, from second `first` on; as many of B as of A.
void AppendIntervals(std::string& journal, Long first, std::span<const float> a, std::span<const float> b);

/// Reads what is whole. False if the text is no journal, or its head is torn.
bool ReadJournal(std::string_view text, JournalContent& content);

/// The seconds that a journal gives: its whole ones, and the last one too if half of it is there.
Long JournalSeconds(const JournalContent& content);

/// CRC-32 as in ISO-HDLC (polynomial 0x04C11DB7, reflected).
std::uint32_t Crc32(std::string_view bytes);

} // namespace pulselark
