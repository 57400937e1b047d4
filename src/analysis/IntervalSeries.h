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

class IntervalSeries {
public:
    /// Seconds after whose end the value of a second stands. The tick of second s stores
    /// `MeanInterval` of s and, anew, of the `SettledAfter` seconds before it: beats of the look-ahead, and
    /// those that a following beat shows to be ectopic, still change them.
    static constexpr int SettledAfter = 4;

    /// Takes the next beat, in the order of times.
    void Add(const Beat& beat);

    /// The beats whose kind is final, in the order of times, each once: one beat after their own.
    std::optional<BeatInterval> Next();

    /// At the end of a record: the last beats become final.
    void Finish();

    /// Mean interval of second `second` (from 1: the time from second - 1 to second), as known by now: of the
    /// normal intervals that end in it, else the corrected ones, else that of the second before; 1.0 before
    /// the first interval.
    float MeanInterval(int second) const;

private:
    void Settle();

    std::deque<Beat> waiting_;        // beats whose kind is not final
    std::deque<BeatInterval> final_;  // not yet fetched
    std::vector<BeatInterval> known_; // every final beat
    double lastTime_ = -1;
};

} // namespace pulselark
