#pragma once

#include "platform/Clock.h"

namespace pulselark {

/// The system's monotonic clock, and its calendar in the locale that the environment names for times. Where
/// none is named, or one that is not installed, a date is as 21/11/2026 and a time as 17:45.
class SystemClock final : public Clock {
public:
    std::int64_t Milliseconds() override;
    double FineMilliseconds() override;
    std::string LocalDate() override;
    std::string LocalTime() override;
    std::string Stamp() override;
};

} // namespace pulselark
