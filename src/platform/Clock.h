#pragma once

#include <cstdint>
#include <string>

namespace pulselark {

/// The multimedia clock, and the calendar.
class Clock {
public:
    virtual ~Clock() = default;
    /// Milliseconds that never go back.
    virtual std::int64_t Milliseconds() = 0;
    /// Today, day first: "21/11/2026".
    virtual std::string ShortDate() = 0;
};

} // namespace pulselark
