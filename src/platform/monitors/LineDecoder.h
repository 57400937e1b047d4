#pragma once

#include "platform/monitors/SampleDecoder.h"

#include <string>
#include <vector>

namespace pulselark {

/// One moment a line: a decimal number per channel, with blanks, commas or semicolons between. Lines end with
/// a line feed, a carriage return or both. A line that is anything else stands for one lost sample; what
/// comes before the first line end is taken for the rest of a line and dropped.
///
/// Where a line end got lost two numbers stand as one, many times as large as any before: such a number is
/// lost, too. Two of them in a row are the signal.
class LineDecoder final : public SampleDecoder {
public:
    /// Numbers beyond this are torn lines run together.
    static constexpr double Largest = 8388608; // 24 bits

    int Take(std::span<const std::uint8_t> bytes, std::vector<std::vector<float>>& channels) override;
    void Restart() override;

private:
    /// The largest numbers of a channel lately.
    struct Size {
        float Largest = 0;
        long Numbers = 0;
        bool LastTooLarge = false;
    };
    bool TakeLine(std::vector<std::vector<float>>& channels);
    static bool RunTogether(Size& size, float number);

    std::string line_;
    std::vector<Size> sizes_;
    bool torn_ = true; // the line's beginning has not been seen
};

} // namespace pulselark
