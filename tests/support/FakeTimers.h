#pragma once

#include "session/MainControls.h"
#include "support/FakePlatform.h"

#include <array>

namespace pulselark {

/// Runs the session's timers by the fake clock, as a window would by the real one: an hour passes as fast as
/// its handlers run. A timer that is enabled, or whose interval changes, begins to wait from that moment.
class FakeTimers {
public:
    explicit FakeTimers(FakeClock& clock) : clock_(clock) {}

    void Advance(std::int64_t milliseconds) {
        const std::int64_t end = clock_.Now + milliseconds;
        while (Timer* timer = NextDue(end))
            timer->Handler();
        clock_.Now = end;
    }

private:
    struct Wait {
        std::int64_t Since = -1; // -1 while disabled
        Long Interval = 0;
    };

    // The clock goes to the earliest timer that is due by `end`; its wait begins anew.
    Timer* NextDue(std::int64_t end) {
        Timer* next = nullptr;
        Wait* wait = nullptr;
        std::int64_t earliest = end;
        for (std::size_t i = 0; i < SessionTimers().size(); ++i) {
            Timer* timer = SessionTimers()[i];
            Wait& own = waits_.at(i);
            if (!timer->Enabled || timer->Handler == nullptr) {
                own.Since = -1;
                continue;
            }
            if (own.Since < 0 || own.Interval != timer->Interval)
                own = {clock_.Now, timer->Interval};
            if (own.Since + own.Interval <= earliest) {
                earliest = own.Since + own.Interval;
                next = timer;
                wait = &own;
            }
        }
        if (next != nullptr)
            wait->Since = clock_.Now = earliest;
        return next;
    }

    FakeClock& clock_;
    std::array<Wait, 32> waits_;
};

} // namespace pulselark
