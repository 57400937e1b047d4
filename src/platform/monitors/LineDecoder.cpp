#include "platform/monitors/LineDecoder.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

namespace pulselark {

namespace {

constexpr std::size_t LongestLine = 256;
constexpr float Lost = std::numeric_limits<float>::quiet_NaN();
// Before so many numbers nobody knows how large a heartbeat is; then it may grow so many times at once. What
// has been the largest counts half after a thousand numbers.
constexpr long NumbersToKnow = 500;
constexpr float Growth = 4;
constexpr float Fading = 0.9993F;

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

bool LineDecoder::RunTogether(Size& size, float number) {
    const float magnitude = std::abs(number);
    const bool tooLarge = size.Numbers >= NumbersToKnow && magnitude > Growth * size.Largest;
    if (tooLarge && !std::exchange(size.LastTooLarge, true))
        return true;
    size.LastTooLarge = false;
    size.Largest = std::max(magnitude, size.Largest * Fading);
    ++size.Numbers;
    return false;
}

bool LineDecoder::TakeLine(std::vector<std::vector<float>>& channels) {
    std::string_view rest = line_;
    bool good = true;
    sizes_.resize(channels.size());
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const float number = NextNumber(rest);
        channels[i].push_back(number);
        good = good && !std::isnan(number) && !RunTogether(sizes_[i], number);
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
        if (byte != '\n' && byte != '\r') {
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
