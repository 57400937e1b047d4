#include "app/TimerRunner.h"

#include <algorithm>

namespace pulselark {

std::int64_t TimerRunner::RunDue(std::int64_t now) {
    std::int64_t next = now + 1000;
    for (Timer* timer : timers_) {
        Wait& wait = waits_[timer];
        if (!timer->Enabled || timer->Handler == nullptr) {
            wait = {};
            continue;
        }
        if (wait.Interval != timer->Interval)
            wait = {now + timer->Interval, timer->Interval};
        if (now >= wait.Due) {
            wait.Due += (now - wait.Due) / timer->Interval * timer->Interval + timer->Interval;
            timer->Handler();
        }
        next = std::min(next, wait.Due);
    }
    return std::max<std::int64_t>(1, next - now);
}

} // namespace pulselark
