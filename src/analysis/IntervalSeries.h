#pragma once

#include "analysis/Beat.h"
#include "analysis/BeatShapes.h"

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

/// Shape judges first: a beat counts as ectopic if its shape has nothing in common with the running mean of
/// the normal ones, is closer to that of ectopic beats seen before (`BeatShapes`), or differs while its time
/// is out of step. Earliness alone makes a beat of normal shape ectopic only while the rhythm is not
/// irregular (atrial fibrillation). Intervals beside an ectopic beat are replaced by the time between the
/// normal beats around it over the number of intervals; a gap of two or three whole intervals in a regular
/// rhythm holds missed beats. A mark on another wave of the QRS than usual is shifted to the usual one for
/// the corrected interval. An interval over lost samples counts only if it is in step. Until six beats have
/// taught the shape every interval between 0.3 and 2 s counts.
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
    /// corrected intervals between two normal beats that end in it, else of all corrected ones, else the last
    /// one before it; 1.0 before the first interval.
    float MeanInterval(int second) const;

private:
    struct Known {
        BeatInterval Interval;
        bool Counts = false; // between two normal beats
    };
    struct Judged {
        Beat Found;
        bool Strange = false; // not normal
    };
    static constexpr std::size_t Kept = 8;

    void Settle(double nextTime);
    void LearnShape(const std::deque<Beat>& beats);
    void WatchForLoss(const Beat& beat, BeatKind kind);
    void WatchRhythm(double raw);
    void AddInterval(double interval);
    double UsualInterval() const;
    bool Regular() const;
    bool Irregular() const;
    double Aligned(const Beat& beat) const;
    BeatKind KindOf(const Beat& beat, double raw, double next) const;
    double Provisional(std::size_t index) const;
    bool GoOn(const Beat& beat, BeatInterval& interval);
    void InferMissed(double raw, std::size_t count);
    void Keep(const BeatInterval& interval, bool counts);
    bool Plausible(double raw) const;

    std::deque<Beat> waiting_;       // beats whose kind is not final
    std::deque<BeatInterval> final_; // not yet fetched
    std::vector<Known> known_;       // every final beat
    BeatShapes shapes_;
    std::deque<Judged> recent_;    // the last final beats
    std::deque<double> intervals_; // the last ones of the normal rhythm, s
    double lastRaw_ = 0;           // of the last beat of normal shape, s; 0 after another one
    double irregular_ = 0;         // share of the last normal intervals that differ from the one before
    double lastTime_ = -1;         // of the last final beat; -1 before
    double lastNormal_ = -1;       // of the last normal one
    int sinceNormal_ = 0;          // beats of other kinds since
    bool broken_ = true;           // the last beat was not to be trusted
};

} // namespace pulselark
