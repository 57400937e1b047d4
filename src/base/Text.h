#pragma once

#include "base/Numbers.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace pulselark {

/// Characters that `WriteSingle` writes at most.
inline constexpr std::size_t LongestSingle = 24;

/// Writes `value` at `out` in the fewest digits that read back as the same 32 bits, and returns the end: a
/// whole number bare ("1", "-20"), no zero before the point (".375"), an exponent form where that is shorter
/// ("1.25E-05"). The locale has no say. A value that is no number is written as 0, so that the file can be
/// read.
char* WriteSingle(char* out, float value);

/// Characters that `WriteDouble` writes at most.
inline constexpr std::size_t LongestDouble = 32;

/// As `WriteSingle`, in the fewest digits that read back as the same 64 bits.
char* WriteDouble(char* out, double value);

/// The value with one digit behind the point ("0.0"); a decimal tie goes away from zero, where the value
/// counts by its 15 leading digits. The locale has no say.
std::string OneDecimal(double value);

/// The number in decimal.
void AppendLong(std::string& text, Long value);

/// The value with so many decimals and a point, as in "0.85"; "0" with decimals for what is no number.
std::string FixedText(double value, int decimals);

/// The whole text as a decimal number; blanks around it are allowed, the locale has no say. A leading plus, a
/// missing zero before the point and an exponent form are accepted; "inf" and "nan" are not numbers.
/// Failures: 13 if the text is anything else (the empty text too), 6 if the number does not fit.
float ParseSingle(std::string_view text);
double ParseDouble(std::string_view text);

/// As `ParseDouble`, rounded to a whole number. Failure 6 if it does not fit 32 bits.
Long ParseLong(std::string_view text);

/// Without blanks, tabs and carriage returns at both ends.
std::string_view Trimmed(std::string_view text);

} // namespace pulselark
