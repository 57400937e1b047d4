#pragma once

#include "WfdbAnnotations.h"

#include <vector>

/// How found beats compare with expert marks.
namespace pulselark {

struct BeatScore {
    int Hits = 0, Missed = 0, False = 0;
    double Sensitivity() const { return Share(Missed); }
    double Predictivity() const { return Share(False); }
    double F1() const { return 2.0 * Hits / (2.0 * Hits + Missed + False); }

    BeatScore& operator+=(const BeatScore& other);

private:
    double Share(int wrong) const {
        return Hits + wrong > 0 ? static_cast<double>(Hits) / (Hits + wrong) : 0;
    }
};

struct RecordScore {
    BeatScore Wide;               ///< within 150 ms
    BeatScore Narrow;             ///< within 50 ms once the median offset is taken out
    double MedianOffset = 0;      ///< found less expert, s
    double Spread = 0;            ///< half of the width that holds the middle 68 % of the offsets, s
    double StandardDeviation = 0; ///< of the offsets within 150 ms, s
    std::vector<double> MissedTimes, FalseTimes;
};

/// Pairs the beats of `marks` with the times `found`, each once, the nearest first come. Times within a
/// stretch of ventricular flutter (codes 32 to 33) count neither way.
RecordScore ScoreBeats(const std::vector<WfdbMark>& marks, const std::vector<double>& found);

} // namespace pulselark
