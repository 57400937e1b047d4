#pragma once

#include <cmath>
#include <cstdint>
#include <string>

namespace pulselark {

/// The system's number types: Integer is 16 bits signed, Long 32 bits signed; reals are `float` where a value
/// is stored and `double` in the arithmetic between.
using Integer = std::int16_t;
using Long = std::int32_t;

/// A flag: 16 bits, 0 or -1, always tested against `Off`. A toggle is a bitwise not.
using Boolean = std::int16_t;
inline constexpr Boolean On = -1;
inline constexpr Boolean Off = 0;

inline constexpr Boolean ToBoolean(bool value) {
    return value ? On : Off;
}

/// Nearest whole number, ties to even, everywhere in the system. The value must fit 64 bits.
inline std::int64_t Round(double value) {
    return std::llrint(value);
}

/// The failures of the system by number. A module throws one inside itself; the routine that is responsible
/// for the operation catches it, restores what it must and shows the text with the number.
enum FailureNumber : Integer {
    FailureOverflow = 6,
    FailureOutOfMemory = 7,
    FailureIndexOutOfRange = 9,
    FailureTypeMismatch = 13,
    FailureBadFileName = 52,
    FailureFileNotFound = 53,
    FailureFileAlreadyOpen = 55,
    FailureDeviceIO = 57,
    FailureDiskFull = 61,
    FailureInputPastEnd = 62,
    FailurePermissionDenied = 70,
    FailurePathFileAccess = 75,
    FailurePathNotFound = 76,
    FailureCancelled = 32755,
};

struct Failure {
    Integer Number;
};

/// What a failure means, in plain English and without a full stop, for messages and for standard error.
/// An unknown number gives "unknown failure".
const char* FailureText(Integer number);

} // namespace pulselark
