#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace pulselark {

/// One notification of a strap's measurement service with raw ECG: a type byte 0, the time of the last sample
/// in nanoseconds (8 bytes, little-endian), a frame type 0, and samples of 24 bits, little-endian two's
/// complement, in microvolts.
struct StrapEcgPacket {
    std::uint64_t Nanoseconds = 0;
    std::vector<float> Microvolts;
};

/// Nothing if the bytes are no such notification: another type, too short, or not in whole samples.
std::optional<StrapEcgPacket> ReadStrapEcg(std::span<const std::uint8_t> bytes);

/// One notification of the Bluetooth heart rate service ("Heart Rate Measurement", 0x2A37, of the Heart Rate
/// Service specification 1.0).
struct StrapHeartRate {
    int BeatsPerMinute = 0;
    bool KnowsContact = false; ///< the strap can tell whether it touches the skin
    bool Contact = false;
    std::vector<double> Intervals; ///< beat to beat, seconds, oldest first
};

/// Nothing if the bytes end before what their flags say.
std::optional<StrapHeartRate> ReadHeartRate(std::span<const std::uint8_t> bytes);

/// Puts the packets of a strap in their places on the time base: what is missing between two packets by their
/// own times is that many lost samples.
class StrapDecoder {
public:
    static constexpr double Rate = 130;

    /// Appends the samples in millivolts, NaN for a lost one. False, and nothing is appended, if the bytes
    /// are no packet or one that was there before.
    bool Take(std::span<const std::uint8_t> bytes, std::vector<float>& samples);
    /// The strap has started anew: its time may be another.
    void Restart() { last_.reset(); }

private:
    std::optional<std::uint64_t> last_;
};

} // namespace pulselark
