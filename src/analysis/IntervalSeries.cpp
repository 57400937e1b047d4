#include "analysis/IntervalSeries.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr std::size_t FirstBeats = 6; // that teach the normal shape
constexpr std::size_t RecentBeats = 10;
constexpr int MostStrange = 9; // of these
// Agreement with the normal shape (BeatShapes).
constexpr double Alike = 0.85, Unlike = 0.7, UnlikeInIrregular = 0.5;
constexpr double Foreign = 0.2;     // that no normal beat has
constexpr double AlignedFrom = 0.4; // of a beat that is only shifted
// Agreement with ectopic beats, and by how much it then tops that with the normal ones.
constexpr double LeastEctopic = 0.8, EctopicMargin = 0.1, EctopicMarginOutOfStep = -0.03;
constexpr double LeastLag = 1.8; // samples, of a mark on another wave

constexpr double Early = 0.85, EarlyUnlike = 0.9, LateUnlike = 1.12; // over the usual interval
constexpr double RegularSpread = 0.07; // mean deviation of the usual intervals over their median
// The share of intervals that differ from the one before; what the first beats show is not yet certain.
constexpr double IrregularStep = 0.1, IrregularPace = 0.1, MostIrregular = 0.35, FirstShare = 0.7;
constexpr double InStep = 0.25; // deviation from the usual interval that is still the rhythm's
constexpr double MissedInStep = 0.12;
constexpr double ShortestInterval = 0.25, LongestInterval = 3;                  // s
constexpr double ShortestProvisional = 0.3, LongestProvisional = 2, Rate = 128; // s, s, samples a second
constexpr std::size_t MostMissed = 2;

} // namespace

void IntervalSeries::Add(const Beat& beat) {
    waiting_.push_back(beat);
    if (!shapes_.Known() && waiting_.size() >= FirstBeats)
        LearnShape(waiting_);
    while (shapes_.Known() && waiting_.size() > 1)
        Settle(waiting_[1].Time);
}

void IntervalSeries::Finish() {
    if (!shapes_.Known() && !waiting_.empty())
        LearnShape(waiting_);
    while (!waiting_.empty()) {
        const double time = waiting_.front().Time;
        // The last beat counts as followed by an interval like its own.
        const double own = lastTime_ < 0 ? UsualInterval() : time - lastTime_;
        Settle(waiting_.size() > 1 ? waiting_[1].Time : time + own);
    }
}

// The usual shape and interval of these beats; of the first ones also whether their rhythm is irregular.
void IntervalSeries::LearnShape(const std::deque<Beat>& beats) {
    shapes_.Learn(beats);
    std::vector<double> intervals;
    for (std::size_t i = 1; i < beats.size(); ++i)
        intervals.push_back(beats[i].Time - beats[i - 1].Time);
    int steps = 0;
    for (std::size_t i = 1; i < intervals.size(); ++i)
        steps += std::abs(intervals[i] / intervals[i - 1] - 1) > IrregularStep ? 1 : 0;
    if (intervals.size() > 2 && lastTime_ < 0)
        irregular_ = FirstShare * steps / (static_cast<double>(intervals.size()) - 1);
    std::sort(intervals.begin(), intervals.end());
    intervals_.clear();
    if (!intervals.empty())
        AddInterval(intervals[intervals.size() / 2]);
}

// Where almost all beats seem strange it is the idea of the normal one that is wrong. Not where it is two of
// three, as in a rhythm of couplets.
void IntervalSeries::WatchForLoss(const Beat& beat, BeatKind kind) {
    recent_.push_back({beat, kind != BeatKind::Normal});
    if (recent_.size() > RecentBeats)
        recent_.pop_front();
    if (std::count_if(recent_.begin(), recent_.end(), [](const Judged& b) { return b.Strange; }) <
        MostStrange)
        return;
    std::deque<Beat> beats;
    for (Judged& judged : recent_) {
        beats.push_back(judged.Found);
        judged.Strange = false;
    }
    LearnShape(beats);
}

// A mark that went to another wave of the QRS than usual is put back where the shape of the normal beats has
// it.
double IntervalSeries::Aligned(const Beat& beat) const {
    if (!shapes_.Known())
        return beat.Time;
    const auto match = shapes_.Normal(beat);
    if (std::abs(match.Lag) < LeastLag || match.Agreement < AlignedFrom)
        return beat.Time;
    return (std::round(beat.Time * Rate) + match.Lag) / Rate;
}

void IntervalSeries::WatchRhythm(double raw) {
    if (raw > 0 && lastRaw_ > 0)
        irregular_ += IrregularPace * ((std::abs(raw / lastRaw_ - 1) > IrregularStep ? 1 : 0) - irregular_);
    lastRaw_ = raw;
}

bool IntervalSeries::Irregular() const {
    return irregular_ > MostIrregular;
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
    const double usual = UsualInterval(), like = shapes_.Normal(beat).Agreement;
    if (raw < ShortestInterval || (beat.Doubtful && (like < Unlike || !Plausible(raw))))
        return BeatKind::Untrusted;
    const double early = raw / usual;
    const bool outOfStep = early < EarlyUnlike || next > LateUnlike * usual;
    if (like < Foreign)
        return BeatKind::Ectopic;
    const double ectopic = shapes_.Ectopic(beat);
    if (ectopic > LeastEctopic &&
        ectopic > like + (outOfStep && !Irregular() ? EctopicMarginOutOfStep : EctopicMargin))
        return BeatKind::Ectopic;
    if (like < (Irregular() ? UnlikeInIrregular : Unlike) && outOfStep)
        return BeatKind::Ectopic;
    if (Irregular())
        return BeatKind::Normal;
    if (like < Alike && early < Early && next > early * usual)
        return BeatKind::Ectopic;
    // Breathing makes intervals short step by step.
    const bool suddenly = intervals_.empty() || raw < EarlyUnlike * intervals_.back();
    return suddenly && early < Early && next > raw * LateUnlike ? BeatKind::Ectopic : BeatKind::Normal;
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
        if (interval.Kind == BeatKind::Ectopic && shapes_.Normal(beat).Agreement < Alike)
            shapes_.AddEctopic(beat);
    } else {
        counts = GoOn(beat, interval);
    }
    lastTime_ = beat.Time;
    Keep(interval, counts);
    WatchForLoss(beat, interval.Kind);
}

// A normal beat: its interval corrected; whether it is one between two normal beats.
bool IntervalSeries::GoOn(const Beat& beat, BeatInterval& interval) {
    const double aligned = Aligned(beat), sinceNormal = aligned - lastNormal_, usual = UsualInterval();
    const double parts = std::max(1.0, std::round(sinceNormal / usual)), part = sinceNormal / parts;
    const bool missed = parts > 1 && parts <= MostMissed + 1.0 && Regular() && !Irregular() &&
                        std::abs(part / usual - 1) < MissedInStep;
    // Nobody knows what was lost, unless the rhythm goes on as if nothing was.
    const bool overGap = beat.AfterGap && sinceNormal_ == 0 && !missed && !Plausible(sinceNormal);
    const bool counts = !broken_ && sinceNormal_ == 0 && sinceNormal > 0 && !missed && !overGap &&
                        interval.Raw < LongestInterval;
    const bool aroundOthers = !broken_ && sinceNormal_ > 0 && std::abs(part / usual - 1) < InStep;
    if (!broken_ && sinceNormal_ == 0 && missed) {
        InferMissed(interval.Raw, static_cast<std::size_t>(parts) - 1);
        interval.Corrected = static_cast<float>(part);
    } else if (counts || aroundOthers) {
        const double corrected = counts ? sinceNormal : part;
        interval.Corrected = static_cast<float>(corrected);
        AddInterval(corrected);
    }
    if (overGap)
        interval.Kind = BeatKind::Untrusted;
    WatchRhythm(counts ? sinceNormal : 0);
    shapes_.AddNormal(beat);
    lastNormal_ = aligned;
    sinceNormal_ = 0;
    broken_ = false;
    return counts;
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

// The interval that a beat whose kind is not final ends: in step with the rhythm, or, before the rhythm is
// known, one that a heart can have. 0 if there is none.
double IntervalSeries::Provisional(std::size_t index) const {
    if (index > 0) {
        const double raw = waiting_[index].Time - waiting_[index - 1].Time;
        const bool overGap = waiting_[index].AfterGap && !Plausible(raw);
        return raw > ShortestProvisional && raw < LongestProvisional && !overGap ? raw : 0;
    }
    if (lastNormal_ < 0 || sinceNormal_ > 0)
        return 0;
    const double raw = Aligned(waiting_[index]) - lastNormal_;
    return Plausible(raw) ? raw : 0;
}

float IntervalSeries::MeanInterval(int second) const {
    struct Mean {
        double Sum = 0;
        int Count = 0;
        void Add(double value) {
            Sum += value;
            ++Count;
        }
        float Value() const { return static_cast<float>(Sum / Count); }
    } counted, corrected;
    float before = 0; // the last interval of an earlier second
    for (std::size_t i = waiting_.size(); i-- > 0 && before == 0;) {
        const double interval = Provisional(i);
        if (interval <= 0 || waiting_[i].Time >= second)
            continue;
        if (waiting_[i].Time < second - 1)
            before = static_cast<float>(interval);
        else
            counted.Add(interval);
    }
    for (auto known = known_.rbegin(); known != known_.rend() && before == 0; ++known) {
        const BeatInterval& interval = known->Interval;
        if (interval.Time >= second || interval.Kind == BeatKind::Untrusted || known + 1 == known_.rend())
            continue;
        if (interval.Time < second - 1) {
            before = interval.Corrected;
            break;
        }
        corrected.Add(interval.Corrected);
        if (known->Counts)
            counted.Add(interval.Corrected);
    }
    if (counted.Count > 0)
        return counted.Value();
    if (corrected.Count > 0)
        return corrected.Value();
    return before > 0 ? before : 1;
}

} // namespace pulselark
