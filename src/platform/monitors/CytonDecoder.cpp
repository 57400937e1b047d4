#include "platform/monitors/CytonDecoder.h"

#include <algorithm>
#include <limits>

namespace pulselark {

namespace {

constexpr std::uint8_t Head = 0xA0;
constexpr std::uint8_t Tail = 0xC0; // and 15 more
constexpr float Lost = std::numeric_limits<float>::quiet_NaN();

float CountsAt(const std::uint8_t* bytes) {
    const std::int32_t value = (bytes[0] << 16) | (bytes[1] << 8) | bytes[2];
    constexpr std::int32_t Sign = 1 << 23;
    return static_cast<float>((value ^ Sign) - Sign);
}

} // namespace

void CytonDecoder::Restart() {
    count_ = 0;
    counted_ = false;
}

bool CytonDecoder::Follows() const {
    return counted_ && bytes_[1] == static_cast<std::uint8_t>(counter_ + 1);
}

bool CytonDecoder::IsPacket() const {
    return (bytes_[PacketSize - 1] & 0xF0U) == Tail && bytes_[PacketSize] == Head &&
           (Follows() || bytes_[PacketSize + 1] == static_cast<std::uint8_t>(bytes_[1] + 1));
}

void CytonDecoder::SeekHead() {
    std::size_t head = 0;
    while (head < count_ && bytes_[head] != Head)
        ++head;
    DropFront(head);
}

void CytonDecoder::DropFront(std::size_t count) {
    std::copy(bytes_.begin() + static_cast<std::ptrdiff_t>(count), bytes_.end(), bytes_.begin());
    count_ -= count;
}

int CytonDecoder::TakePacket(std::vector<std::vector<float>>& channels) {
    const auto jump = static_cast<std::uint8_t>(bytes_[1] - counter_);
    if (counted_ && jump == 0)
        return 0; // the same packet once more
    for (std::size_t i = 0; i < channels.size(); ++i) {
        if (counted_)
            channels[i].insert(channels[i].end(), std::size_t{jump} - 1, Lost);
        const auto channel = static_cast<std::size_t>(first_ - 1) + i;
        channels[i].push_back(channel < ChannelCount ? CountsAt(&bytes_[2 + 3 * channel]) : Lost);
    }
    counter_ = bytes_[1];
    counted_ = true;
    return 1;
}

int CytonDecoder::Take(std::span<const std::uint8_t> bytes, std::vector<std::vector<float>>& channels) {
    int good = 0;
    for (const std::uint8_t byte : bytes) {
        bytes_[count_++] = byte;
        SeekHead();
        if (count_ < (Follows() ? PacketSize + 1 : PacketSize + 2))
            continue;
        if (IsPacket()) {
            good += TakePacket(channels);
            DropFront(PacketSize);
        } else {
            DropFront(1);
            SeekHead();
        }
    }
    return good;
}

} // namespace pulselark
