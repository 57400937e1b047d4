#include "persistence/TextRecords.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace pulselark {

namespace {

constexpr std::string_view TrueWord = "#TRUE#";
constexpr std::string_view FalseWord = "#FALSE#";

// `word` is in capitals.
bool IsWord(std::string_view text, std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char c, char capital) {
        return c == capital || (c >= 'a' && c <= 'z' && c - 'a' + 'A' == capital);
    });
}

} // namespace

TextRecordReader::TextRecordReader(std::string_view text)
    : position_(text.data()), end_(text.data() + text.size()) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(ByteOrderMark))
        position_ += ByteOrderMark.size();
}

std::string_view TextRecordReader::NextLine() {
    ++line_;
    if (position_ == end_)
        throw Failure{FailureInputPastEnd};
    const auto* lineEnd =
        static_cast<const char*>(std::memchr(position_, '\n', static_cast<std::size_t>(end_ - position_)));
    const char* begin = position_;
    position_ = lineEnd != nullptr ? lineEnd + 1 : end_;
    return {begin, static_cast<std::size_t>((lineEnd != nullptr ? lineEnd : end_) - begin)};
}

std::string_view TextRecordReader::NextText() {
    const std::string_view line = Trimmed(NextLine());
    if (!line.starts_with('"'))
        return line;
    if (line.size() < 2 || !line.ends_with('"'))
        throw Failure{FailureTypeMismatch};
    return line.substr(1, line.size() - 2);
}

Long TextRecordReader::NextLong() {
    return ParseLong(NextLine());
}

float TextRecordReader::NextSingle() {
    // Nearly every line is a bare number and CR LF, taken without looking for the line's end first.
    float value = 0;
    const auto [rest, error] = std::from_chars(position_, end_, value);
    if (error == std::errc() && end_ - rest >= 2 && rest[0] == '\r' && rest[1] == '\n' &&
        std::isfinite(value)) {
        position_ = rest + 2;
        ++line_;
        return value;
    }
    return ParseSingle(NextLine());
}

Integer TextRecordReader::NextInteger() {
    const Long value = NextLong();
    if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
        throw Failure{FailureOverflow};
    return static_cast<Integer>(value);
}

double TextRecordReader::NextDouble() {
    return ParseDouble(NextLine());
}

Boolean TextRecordReader::NextBoolean() {
    const std::string_view text = Trimmed(NextLine());
    if (IsWord(text, TrueWord))
        return On;
    if (IsWord(text, FalseWord))
        return Off;
    throw Failure{FailureTypeMismatch};
}

void AppendTextLine(std::string& out, std::string_view text) {
    out.push_back('"');
    for (const char c : text) {
        if (c == '\r')
            continue;
        out.push_back(c == '\n' ? ' ' : c);
    }
    out.append("\"\r\n");
}

void AppendLongLine(std::string& out, Long value) {
    AppendLong(out, value);
    out.append("\r\n");
}

void AppendSingleLine(std::string& out, float value) {
    std::array<char, LongestSingle> digits;
    out.append(digits.data(), WriteSingle(digits.data(), value));
    out.append("\r\n");
}

void AppendDoubleLine(std::string& out, double value) {
    std::array<char, LongestDouble> digits;
    out.append(digits.data(), WriteDouble(digits.data(), value));
    out.append("\r\n");
}

void AppendBooleanLine(std::string& out, Boolean value) {
    out.append(value != Off ? TrueWord : FalseWord);
    out.append("\r\n");
}

} // namespace pulselark
