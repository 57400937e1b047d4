#pragma once

#include "base/Controls.h"

#include <cstdint>
#include <map>
#include <span>

namespace pulselark {

/// Runs timers by the readings of a clock, for a program without a message loop. A timer that is enabled, or
/// whose interval changes, begins to wait from the reading at which that is seen; one that is late runs once
/// and keeps its rhythm.
class TimerRunner {
public:
    explicit TimerRunner(std::span<Timer* const> timers) : timers_(timers) {}

    /// Runs what is due at `now`, each timer once at most. Returns the milliseconds until the next is due, at
    /// least 1; 1000 if none is enabled.
    std::int64_t RunDue(std::int64_t now);

private:
    struct Wait {
        std::int64_t Due = 0;
        Long Interval = 0; // 0: not waiting
    };
    std::span<Timer* const> timers_;
    std::map<const Timer*, Wait> waits_;
};

} // namespace pulselark
