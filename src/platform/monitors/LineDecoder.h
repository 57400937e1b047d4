#pragma once

#include "platform/monitors/SampleDecoder.h"

#include <string>

namespace pulselark {

/// One moment a line: a decimal number per channel, with blanks, commas or semicolons between. Lines end with
/// a line feed, carriage returns are passed over. A line that is anything else stands for one lost sample;
/// what comes before the first line end is taken for the rest of a line and dropped.
class LineDecoder final : public SampleDecoder {
public:
    /// Numbers beyond this are torn lines run together.
    static constexpr double Largest = 8388608; // 24 bits

    int Take(std::span<const std::uint8_t> bytes, std::vector<std::vector<float>>& channels) override;
    void Restart() override;

private:
    bool TakeLine(std::vector<std::vector<float>>& channels) const;

    std::string line_;
    bool torn_ = true; // the line's beginning has not been seen
};

} // namespace pulselark
