#pragma once

#include "analysis/Beat.h"

#include <deque>
#include <optional>
#include <vector>

/// From beats to intervals: which of them are a normal rhythm's, and what the mean interval of each second
/// is.
namespace pulselark {

enum class BeatKind : char {
    Normal = 'N',
    Ectopic = 'E',   ///< another shape or far too early, while the rhythm goes on around it
    Missed = 'M',    ///< not found, inferred from a gap of whole intervals
    Untrusted = 'X', ///< noise or lost samples; its interval counts nowhere
};

struct BeatInterval {
    double Time = 0;     ///< s from the first sample
    float Raw = 0;       ///< s from the beat found before; 0 for the first beat and for an inferred one
    float Corrected = 0; ///< what the rhythm without ectopic and missed beats would have, s
    BeatKind Kind = BeatKind::Normal;
};

/// A beat counts as ectopic if its shape is unlike the running mean of the normal ones and its time is out of
/// step, or, in a regular rhythm, by its earliness alone. In an irregular rhythm (atrial fibrillation) an
/// early beat of normal shape is a normal one. Intervals beside an ectopic beat are replaced by the time
/// between the normal beats around it over the number of intervals; a gap of two or three whole intervals in
/// a regular rhythm holds missed beats.
class IntervalSeries {
public:
    /// Seconds after whose end the value of a second stands. The tick of second s stores `MeanInterval` of s
    /// and, anew, of the `SettledAfter` seconds before it: beats of the look-ahead, and those that the next
    /// beat shows to be ectopic, still change them.
    static constexpr int SettledAfter = 4;

    /// Takes the next beat, in the order of times.
    void Add(const Beat& beat);

    /// The beats whose kind is final, in the order of times, each once: one beat after their own.
    std::optional<BeatInterval> Next();

    /// At the end of a record: the last beats become final.
    void Finish();

    /// Mean interval of second `second` (from 1: the time from second - 1 to second), as known by now: of the
    /// intervals between two normal beats that end in it, else of the corrected ones, else that of the second
    /// before; 1.0 before the first interval.
    float MeanInterval(int second) const;

private:
    struct Known {
        BeatInterval Interval;
        bool Counts = false; // between two normal beats
    };
    static constexpr std::size_t Kept = 8;

    void Settle(double nextTime);
    void LearnShape(const std::deque<Beat>& beats);
    void WatchForLoss(const Beat& beat, BeatKind kind);
    double Likeness(const Beat& beat) const;
    void AddShape(const Beat& beat);
    void AddInterval(double interval);
    double UsualInterval() const;
    bool Regular() const;
    BeatKind KindOf(const Beat& beat, double raw, double next) const;
    void InferMissed(double raw, std::size_t count);
    void Keep(const BeatInterval& interval, bool counts);
    bool Plausible(double raw) const;

    std::deque<Beat> waiting_;                    // beats whose kind is not final
    std::deque<BeatInterval> final_;              // not yet fetched
    std::vector<Known> known_;                    // every final beat
    std::array<double, Beat::ShapeSize> shape_{}; // mean shape of the normal beats
    bool shapeKnown_ = false;
    std::deque<Beat> recent_;      // the last final beats
    double strange_ = 0;           // share of the last beats that are not normal
    std::deque<double> intervals_; // the last ones of the normal rhythm, s
    double lastTime_ = -1;         // of the last final beat; -1 before
    double lastNormal_ = -1;       // of the last normal one
    int sinceNormal_ = 0;          // beats of other kinds since
    bool broken_ = true;           // the last beat was not to be trusted
};

} // namespace pulselark
