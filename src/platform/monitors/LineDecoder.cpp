#include "platform/monitors/LineDecoder.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

namespace pulselark {

namespace {

constexpr std::size_t LongestLine = 256;
constexpr float Lost = std::numeric_limits<float>::quiet_NaN();

// The next number of a line, or NaN.
float NextNumber(std::string_view& rest) {
    constexpr std::string_view Between = " \t,;";
    rest.remove_prefix(std::min(rest.find_first_not_of(Between), rest.size()));
    const std::string_view word = rest.substr(0, rest.find_first_of(Between));
    rest.remove_prefix(word.size());
    try {
        const double number = ParseDouble(word);
        return std::abs(number) <= LineDecoder::Largest ? static_cast<float>(number) : Lost;
    } catch (const Failure&) {
        return Lost;
    }
}

} // namespace

void LineDecoder::Restart() {
    line_.clear();
    torn_ = true;
}

bool LineDecoder::TakeLine(std::vector<std::vector<float>>& channels) const {
    std::string_view rest = line_;
    bool good = true;
    for (std::vector<float>& channel : channels) {
        channel.push_back(NextNumber(rest));
        good = good && !std::isnan(channel.back());
    }
    if (!good) {
        for (std::vector<float>& channel : channels)
            channel.back() = Lost;
    }
    return good;
}

int LineDecoder::Take(std::span<const std::uint8_t> bytes, std::vector<std::vector<float>>& channels) {
    int good = 0;
    for (const std::uint8_t byte : bytes) {
        if (byte == '\r')
            continue;
        if (byte != '\n') {
            line_.push_back(static_cast<char>(byte));
            // No line is that long: the bytes are no text at all.
            if (line_.size() > LongestLine)
                Restart();
            continue;
        }
        if (!torn_ && !line_.empty())
            good += TakeLine(channels) ? 1 : 0;
        line_.clear();
        torn_ = false;
    }
    return good;
}

} // namespace pulselark
