#include "analysis/IntervalSeries.h"

#include <algorithm>

namespace pulselark {

void IntervalSeries::Add(const Beat& beat) {
    waiting_.push_back(beat);
    if (waiting_.size() > 1)
        Settle();
}

void IntervalSeries::Settle() {
    const Beat& beat = waiting_.front();
    BeatInterval interval;
    interval.Time = beat.Time;
    interval.Raw = lastTime_ < 0 ? 0 : static_cast<float>(beat.Time - lastTime_);
    interval.Corrected = interval.Raw;
    lastTime_ = beat.Time;
    waiting_.pop_front();
    known_.push_back(interval);
    final_.push_back(interval);
}

std::optional<BeatInterval> IntervalSeries::Next() {
    if (final_.empty())
        return std::nullopt;
    const BeatInterval interval = final_.front();
    final_.pop_front();
    return interval;
}

void IntervalSeries::Finish() {
    while (!waiting_.empty())
        Settle();
}

float IntervalSeries::MeanInterval(int second) const {
    double sum = 0;
    int count = 0;
    float last = 1;
    for (const BeatInterval& interval : known_) {
        if (interval.Raw == 0)
            continue;
        if (interval.Time >= second)
            break;
        last = interval.Corrected;
        if (interval.Time >= second - 1) {
            sum += interval.Corrected;
            ++count;
        }
    }
    return count > 0 ? static_cast<float>(sum / count) : last;
}

} // namespace pulselark
