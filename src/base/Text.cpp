#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace pulselark {

namespace {

constexpr std::string_view Blanks = " \t\r";

// from_chars takes "inf" and "nan" and no plus; a number in a file begins with a digit or a point.
std::string_view NumberBody(std::string_view text) {
    text = Trimmed(text);
    const bool plus = !text.empty() && text.front() == '+';
    if (plus)
        text.remove_prefix(1);
    const std::size_t sign = !plus && !text.empty() && text.front() == '-' ? 1 : 0;
    if (text.size() <= sign || !((text[sign] >= '0' && text[sign] <= '9') || text[sign] == '.'))
        throw Failure{FailureTypeMismatch};
    return text;
}

// Decimal place of the first digit that is not zero, before the exponent: 0 for "1", 2 for "100", -3 for
// "0.001".
std::ptrdiff_t PlaceOfFirstDigit(std::string_view mantissa) {
    const std::size_t digit = mantissa.find_first_of("123456789");
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto distance = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(digit);
    return distance > 0 ? distance - 1 : distance;
}

// A number beyond the type's range: too small is zero, too large does not fit.
template <class Real>
Real OutOfRange(std::string_view body) {
    const std::size_t e = std::min(body.find_first_of("eE"), body.size());
    long exponent = 0;
    if (e < body.size()) {
        const std::string_view text = body.substr(body.find_first_not_of("eE+", e));
        const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
        if (result.ec == std::errc::result_out_of_range)
            exponent =
                text.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    if (PlaceOfFirstDigit(body.substr(0, e)) + exponent > 0)
        throw Failure{FailureOverflow};
    return 0;
}

template <class Real>
Real Parse(std::string_view text) {
    Real value = 0;
    const char* end = text.data() + text.size();
    auto result = std::from_chars(text.data(), end, value);
    // The common case is a bare number that fills the line; everything else is looked at closely.
    if (result.ec == std::errc() && result.ptr == end && std::isfinite(value))
        return value;
    const std::string_view body = NumberBody(text);
    end = body.data() + body.size();
    result = std::from_chars(body.data(), end, value);
    if (result.ptr != end || result.ec == std::errc::invalid_argument)
        throw Failure{FailureTypeMismatch};
    return result.ec == std::errc::result_out_of_range ? OutOfRange<Real>(body) : value;
}

template <class Real>
char* Write(char* out, char* limit, Real value, Real largestPlainWhole) {
    if (!std::isfinite(value)) {
        *out = '0';
        return out + 1;
    }
    const bool negativeZero = value == 0 && std::signbit(value);
    if (std::fabs(value) <= largestPlainWhole && value == std::trunc(value) && !negativeZero)
        return std::to_chars(out, limit, static_cast<std::int64_t>(value)).ptr;
    char* end = std::to_chars(out, limit, value).ptr;
    char* const zero = *out == '-' ? out + 1 : out;
    if (end - zero > 1 && zero[0] == '0' && zero[1] == '.') {
        std::memmove(zero, zero + 1, static_cast<std::size_t>(end - zero) - 1);
        --end;
    }
    for (char* c = out; c != end; ++c) {
        if (*c == 'e')
            *c = 'E';
    }
    return end;
}

} // namespace

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

float ParseSingle(std::string_view text) {
    return Parse<float>(text);
}

double ParseDouble(std::string_view text) {
    return Parse<double>(text);
}

Long ParseLong(std::string_view text) {
    const double value = ParseDouble(text);
    if (!(std::fabs(value) < 4e9))
        throw Failure{FailureOverflow};
    const std::int64_t whole = Round(value);
    if (whole < std::numeric_limits<Long>::min() || whole > std::numeric_limits<Long>::max())
        throw Failure{FailureOverflow};
    return static_cast<Long>(whole);
}

std::string OneDecimal(double value) {
    // 15 digits in all: what a calculation leaves behind them is no part of the number.
    char digits[LongestDouble];
    const auto scientific =
        std::to_chars(digits, digits + sizeof digits, std::fabs(value), std::chars_format::scientific, 14);
    const double cleaned = ParseDouble({digits, scientific.ptr});
    char text[64];
    const auto fixed = std::to_chars(text, text + sizeof text, cleaned, std::chars_format::fixed, 12);
    const std::string_view whole(text, fixed.ptr);
    const std::size_t point = whole.find('.');
    auto tenths =
        static_cast<std::int64_t>(ParseDouble(whole.substr(0, point))) * 10 + (whole[point + 1] - '0');
    if (whole[point + 2] >= '5')
        ++tenths;
    const char* sign = value < 0 && tenths > 0 ? "-" : "";
    return sign + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

void AppendLong(std::string& text, Long value) {
    char digits[16];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    text.append(digits, result.ptr);
}

char* WriteSingle(char* out, float value) {
    return Write(out, out + LongestSingle, value, 9999999.0F);
}

char* WriteDouble(char* out, double value) {
    return Write(out, out + LongestDouble, value, 999999999999999.0);
}

std::string FixedText(double value, int decimals) {
    constexpr std::size_t LongestFixed = 400; // 309 digits before the point
    char digits[LongestFixed];
    const auto result = std::to_chars(digits, digits + LongestFixed, std::isfinite(value) ? value : 0,
                                      std::chars_format::fixed, decimals);
    return {digits, result.ptr};
}

} // namespace pulselark
