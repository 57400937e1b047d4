#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace pulselark {

/// What a sensor's bytes say. Decoders take them in pieces of any size, survive torn and lost bytes and
/// rubbish, and never fail.
class SampleDecoder {
public:
    virtual ~SampleDecoder() = default;
    /// Appends to `channels` (one series per channel) the samples that the bytes complete; a sample that is
    /// known to be lost is a NaN. Returns how many were good, counted per moment, not per channel.
    virtual int Take(std::span<const std::uint8_t> bytes, std::vector<std::vector<float>>& channels) = 0;
    /// Forgets what is incomplete: the stream begins anew.
    virtual void Restart() = 0;
};

} // namespace pulselark
