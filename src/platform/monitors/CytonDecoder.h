#pragma once

#include "platform/monitors/SampleDecoder.h"

#include <array>
#include <cstddef>

namespace pulselark {

/// The packets of OpenBCI's Cyton board (its documentation, "Cyton Data Format"), 250 a second, 33 bytes:
///
///     0        0xA0
///     1        sample counter, 0 to 255 and round again
///     2 to 25  eight channels of 24 bits, big-endian two's complement
///     26 to 31 six auxiliary bytes
///     32       0xC0 to 0xCF
///
/// A jump of the counter is that many lost samples. A packet is believed if the next one begins right behind
/// it, and if its count follows the last one or is followed by the next one's.
class CytonDecoder final : public SampleDecoder {
public:
    static constexpr std::size_t PacketSize = 33;
    static constexpr int ChannelCount = 8;
    static constexpr double Rate = 250;
    /// Millivolts of one count at the board's start gain of 24.
    static constexpr double MillivoltsPerCount = 4500.0 / 24 / 8388607;

    /// `first` is the channel of the board, 1 to 8, that is the first of the monitor; what would lie beyond
    /// the eighth gives NaN.
    explicit CytonDecoder(int first) : first_(first) {}

    /// Samples in counts.
    int Take(std::span<const std::uint8_t> bytes, std::vector<std::vector<float>>& channels) override;
    void Restart() override;

private:
    bool Follows() const;
    bool IsPacket() const;
    void SeekHead();
    int TakePacket(std::vector<std::vector<float>>& channels);
    void DropFront(std::size_t count);

    int first_;
    std::array<std::uint8_t, PacketSize + 2> bytes_{};
    std::size_t count_ = 0;
    bool counted_ = false; // there is a packet before
    std::uint8_t counter_ = 0;
};

} // namespace pulselark
