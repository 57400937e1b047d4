#pragma once

#include "platform/Clock.h"

namespace pulselark {

/// The system's monotonic clock.
class SystemClock final : public Clock {
public:
    std::int64_t Milliseconds() override;
};

} // namespace pulselark
