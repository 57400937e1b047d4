#include "analysis/IntervalSeries.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr std::size_t FirstBeats = 6; // that teach the normal shape
constexpr std::size_t RecentBeats = 10;
constexpr double StrangePace = 0.15, MostStrange = 0.68; // share of the last beats
constexpr double ShapePace = 0.1;
constexpr double Alike = 0.9, Unlike = 0.75, UnlikeInIrregular = 0.65; // agreement with the normal shape
constexpr double Foreign = 0.2;                                        // agreement that no normal beat has

constexpr double Early = 0.82, EarlyUnlike = 0.92, LateUnlike = 1.12; // over the usual interval
constexpr double RegularSpread = 0.07; // mean deviation of the usual intervals over their median
constexpr double InStep = 0.25;        // deviation from the usual interval that is still the rhythm's
constexpr double MissedInStep = 0.12;
constexpr double ShortestInterval = 0.25, LongestInterval = 3; // s
constexpr std::size_t MostMissed = 2;
constexpr int ShapeFrom = 3, ShapeTo = 28, LongestLag = 2;

// 1 for the same shape of the same size, 0 and less for shapes that have nothing in common.
double Agreement(const Beat& beat, const std::array<double, Beat::ShapeSize>& shape, int lag) {
    double product = 0, squares = 1;
    for (int k = ShapeFrom; k <= ShapeTo; ++k) {
        const double x = beat.Shape[static_cast<std::size_t>(k + lag)];
        const double y = shape[static_cast<std::size_t>(k)];
        product += x * y;
        squares += x * x + y * y;
    }
    return 2 * product / squares;
}

std::array<double, Beat::ShapeSize> ShapeOf(const Beat& beat) {
    std::array<double, Beat::ShapeSize> shape{};
    std::copy(beat.Shape.begin(), beat.Shape.end(), shape.begin());
    return shape;
}

} // namespace

void IntervalSeries::Add(const Beat& beat) {
    waiting_.push_back(beat);
    if (!shapeKnown_ && waiting_.size() >= FirstBeats)
        LearnShape(waiting_);
    while (shapeKnown_ && waiting_.size() > 1)
        Settle(waiting_[1].Time);
}

void IntervalSeries::Finish() {
    if (!shapeKnown_ && !waiting_.empty())
        LearnShape(waiting_);
    while (!waiting_.empty())
        Settle(waiting_.size() > 1 ? waiting_[1].Time : waiting_.front().Time + UsualInterval());
}

// The shape of the beat that is most like the others, and their median interval.
void IntervalSeries::LearnShape(const std::deque<Beat>& beats) {
    double best = -1;
    std::vector<double> intervals;
    for (std::size_t i = 0; i < beats.size(); ++i) {
        double sum = 0;
        for (const Beat& other : beats)
            sum += Agreement(other, ShapeOf(beats[i]), 0);
        if (i > 0)
            intervals.push_back(beats[i].Time - beats[i - 1].Time);
        if (sum <= best)
            continue;
        best = sum;
        shape_ = ShapeOf(beats[i]);
    }
    shapeKnown_ = true;
    std::sort(intervals.begin(), intervals.end());
    intervals_.clear();
    if (!intervals.empty())
        AddInterval(intervals[intervals.size() / 2]);
}

// Where most beats seem strange it is the idea of the normal one that is wrong.
void IntervalSeries::WatchForLoss(const Beat& beat, BeatKind kind) {
    recent_.push_back(beat);
    if (recent_.size() > RecentBeats)
        recent_.pop_front();
    strange_ += StrangePace * ((kind == BeatKind::Normal ? 0 : 1) - strange_);
    if (strange_ < MostStrange || recent_.size() < RecentBeats)
        return;
    LearnShape(recent_);
    strange_ = 0;
}

double IntervalSeries::Likeness(const Beat& beat) const {
    double best = 0;
    for (int lag = -LongestLag; lag <= LongestLag; ++lag)
        best = std::max(best, Agreement(beat, shape_, lag));
    return best;
}

void IntervalSeries::AddShape(const Beat& beat) {
    for (std::size_t k = 0; k < shape_.size(); ++k)
        shape_[k] += ShapePace * (beat.Shape[k] - shape_[k]);
}

void IntervalSeries::AddInterval(double interval) {
    intervals_.push_back(interval);
    if (intervals_.size() > Kept)
        intervals_.pop_front();
}

double IntervalSeries::UsualInterval() const {
    if (intervals_.empty())
        return 1;
    std::vector<double> sorted(intervals_.begin(), intervals_.end());
    std::sort(sorted.begin(), sorted.end());
    return (sorted[(sorted.size() - 1) / 2] + sorted[sorted.size() / 2]) / 2;
}

bool IntervalSeries::Regular() const {
    const double usual = UsualInterval();
    double deviation = 0;
    for (const double interval : intervals_)
        deviation += std::abs(interval - usual) / usual;
    return deviation < RegularSpread * static_cast<double>(intervals_.size());
}

bool IntervalSeries::Plausible(double raw) const {
    return std::abs(raw / UsualInterval() - 1) < InStep;
}

BeatKind IntervalSeries::KindOf(const Beat& beat, double raw, double next) const {
    const double usual = UsualInterval(), like = Likeness(beat);
    if (raw < ShortestInterval || (beat.Doubtful && (like < Unlike || !Plausible(raw))))
        return BeatKind::Untrusted;
    const double early = raw / usual;
    const double unlike = Regular() ? Unlike : UnlikeInIrregular;
    if (like < Foreign && Regular())
        return BeatKind::Ectopic;
    if (like < unlike && (early < EarlyUnlike || next > LateUnlike * usual))
        return BeatKind::Ectopic;
    if (like < Alike && early < Early && next > early * usual)
        return BeatKind::Ectopic;
    return Regular() && early < Early && next > raw * LateUnlike ? BeatKind::Ectopic : BeatKind::Normal;
}

void IntervalSeries::Settle(double nextTime) {
    const Beat beat = waiting_.front();
    waiting_.pop_front();
    BeatInterval interval;
    interval.Time = beat.Time;
    const double raw = lastTime_ < 0 ? 0 : beat.Time - lastTime_;
    interval.Raw = static_cast<float>(raw);
    const double usual = UsualInterval();
    interval.Corrected = static_cast<float>(usual);
    bool counts = false;
    interval.Kind = lastTime_ < 0 ? BeatKind::Normal : KindOf(beat, raw, nextTime - beat.Time);
    if (interval.Kind != BeatKind::Normal) {
        ++sinceNormal_;
        broken_ = broken_ || interval.Kind == BeatKind::Untrusted;
    } else {
        const double parts = std::max(1.0, std::round((beat.Time - lastNormal_) / usual));
        const double part = (beat.Time - lastNormal_) / parts;
        if (!broken_ && sinceNormal_ == 0 && parts > 1 && parts <= MostMissed + 1.0 && Regular() &&
            std::abs(part / usual - 1) < MissedInStep) {
            InferMissed(raw, static_cast<std::size_t>(parts) - 1);
            interval.Corrected = static_cast<float>(part);
        } else if (!broken_ && sinceNormal_ == 0 && raw < LongestInterval) {
            counts = true;
            interval.Corrected = interval.Raw;
            AddInterval(raw);
        } else if (!broken_ && sinceNormal_ > 0 && std::abs(part / usual - 1) < InStep) {
            interval.Corrected = static_cast<float>(part);
            AddInterval(part);
        }
        AddShape(beat);
        lastNormal_ = beat.Time;
        sinceNormal_ = 0;
        broken_ = false;
    }
    lastTime_ = beat.Time;
    Keep(interval, counts);
    WatchForLoss(beat, interval.Kind);
}

void IntervalSeries::InferMissed(double raw, std::size_t count) {
    const double part = raw / static_cast<double>(count + 1);
    for (std::size_t i = 1; i <= count; ++i)
        Keep({lastTime_ + static_cast<double>(i) * part, 0, static_cast<float>(part), BeatKind::Missed},
             false);
}

void IntervalSeries::Keep(const BeatInterval& interval, bool counts) {
    known_.push_back({interval, counts});
    final_.push_back(interval);
}

std::optional<BeatInterval> IntervalSeries::Next() {
    if (final_.empty())
        return std::nullopt;
    const BeatInterval interval = final_.front();
    final_.pop_front();
    return interval;
}

float IntervalSeries::MeanInterval(int second) const {
    double counted = 0, corrected = 0;
    int countedBeats = 0, correctedBeats = 0;
    // The beat that is not final counts if it is in step.
    if (!waiting_.empty() && shapeKnown_ && lastTime_ >= 0 && lastTime_ == lastNormal_) {
        const double raw = waiting_.front().Time - lastTime_;
        if (std::ceil(waiting_.front().Time) == second && Plausible(raw)) {
            counted = raw;
            countedBeats = 1;
        }
    }
    double before = 1; // the last interval of an earlier second
    for (auto known = known_.rbegin(); known != known_.rend(); ++known) {
        const BeatInterval& interval = known->Interval;
        if (interval.Time >= second || interval.Kind == BeatKind::Untrusted || known + 1 == known_.rend())
            continue;
        if (interval.Time < second - 1) {
            before = interval.Corrected;
            break;
        }
        corrected += interval.Corrected;
        ++correctedBeats;
        if (known->Counts) {
            counted += interval.Raw;
            ++countedBeats;
        }
    }
    if (countedBeats > 0)
        return static_cast<float>(counted / countedBeats);
    return static_cast<float>(correctedBeats > 0 ? corrected / correctedBeats : before);
}

} // namespace pulselark
