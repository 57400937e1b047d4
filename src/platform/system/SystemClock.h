#pragma once

#include "platform/Clock.h"

namespace pulselark {

/// The system's monotonic clock, and its local date.
class SystemClock final : public Clock {
public:
    std::int64_t Milliseconds() override;
    std::string ShortDate() override;
};

} // namespace pulselark
