#include "platform/monitors/StrapDecoder.h"

#include <cmath>
#include <cstddef>
#include <limits>

namespace pulselark {

namespace {

constexpr std::size_t HeaderSize = 10;
constexpr std::size_t SampleSize = 3;
constexpr float Lost = std::numeric_limits<float>::quiet_NaN();
// What is longer is a strap that has set its clock, or a loss that the reader's clock has measured.
constexpr double LongestGap = 1.5; // seconds

std::uint64_t LittleEndian(std::span<const std::uint8_t> bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        value = value << 8U | bytes[i];
    return value;
}

} // namespace

std::optional<StrapEcgPacket> ReadStrapEcg(std::span<const std::uint8_t> bytes) {
    if (bytes.size() <= HeaderSize || (bytes.size() - HeaderSize) % SampleSize != 0)
        return std::nullopt;
    if (bytes[0] != 0 || bytes[HeaderSize - 1] != 0)
        return std::nullopt;
    StrapEcgPacket packet;
    packet.Nanoseconds = LittleEndian(bytes.subspan(1, 8));
    for (std::size_t at = HeaderSize; at < bytes.size(); at += SampleSize) {
        constexpr std::int32_t Sign = 1 << 23;
        const auto value = static_cast<std::int32_t>(LittleEndian(bytes.subspan(at, SampleSize)));
        packet.Microvolts.push_back(static_cast<float>((value ^ Sign) - Sign));
    }
    return packet;
}

std::optional<StrapHeartRate> ReadHeartRate(std::span<const std::uint8_t> bytes) {
    enum Flag : unsigned { WideRate = 1, Contact = 2, KnowsContact = 4, Energy = 8, Intervals = 16 };
    if (bytes.empty())
        return std::nullopt;
    const unsigned flags = bytes[0];
    const std::size_t rateSize = (flags & WideRate) != 0 ? 2 : 1;
    const std::size_t intervalsAt = 1 + rateSize + ((flags & Energy) != 0 ? 2 : 0);
    if (bytes.size() < intervalsAt)
        return std::nullopt;
    StrapHeartRate rate;
    rate.BeatsPerMinute = static_cast<int>(LittleEndian(bytes.subspan(1, rateSize)));
    rate.KnowsContact = (flags & KnowsContact) != 0;
    rate.Contact = rate.KnowsContact && (flags & Contact) != 0;
    if ((flags & Intervals) == 0)
        return rate;
    constexpr double PerSecond = 1024;
    for (std::size_t at = intervalsAt; at + 2 <= bytes.size(); at += 2)
        rate.Intervals.push_back(static_cast<double>(LittleEndian(bytes.subspan(at, 2))) / PerSecond);
    return rate;
}

bool StrapDecoder::Take(std::span<const std::uint8_t> bytes, std::vector<float>& samples) {
    const auto packet = ReadStrapEcg(bytes);
    if (!packet || (last_ && packet->Nanoseconds == *last_))
        return false;
    if (last_ && packet->Nanoseconds > *last_) {
        const double seconds = static_cast<double>(packet->Nanoseconds - *last_) / 1e9;
        const auto count = static_cast<double>(packet->Microvolts.size());
        // Straps give their times to the nearest sample or so.
        const double missing = std::round(seconds * Rate - count);
        if (missing >= 3 && missing <= LongestGap * Rate)
            samples.insert(samples.end(), static_cast<std::size_t>(missing), Lost);
    }
    last_ = packet->Nanoseconds;
    for (const float microvolts : packet->Microvolts)
        samples.push_back(microvolts / 1000);
    return true;
}

} // namespace pulselark
