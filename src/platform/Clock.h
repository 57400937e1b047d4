#pragma once

#include <cstdint>
#include <string>

namespace pulselark {

/// The multimedia clock, and the calendar beside it.
class Clock {
public:
    virtual ~Clock() = default;
    /// Milliseconds that never go back.
    virtual std::int64_t Milliseconds() = 0;
    /// The same with its fractions, for measuring.
    virtual double FineMilliseconds() { return static_cast<double>(Milliseconds()); }
    /// Today's date and the time of day where the user is, in the short forms of the user's system.
    virtual std::string LocalDate() = 0;
    virtual std::string LocalTime() = 0;
    /// Date and time of day as a name sorts them: "20261121-174500".
    virtual std::string Stamp() = 0;
};

} // namespace pulselark
