#pragma once

#include <array>

namespace pulselark {

/// A heartbeat as found in the ECG.
struct Beat {
    static constexpr int ShapeSize = 32;
    static constexpr int ShapePeak = 16; ///< place of the beat's sample in `Shape`, from 0

    double Time = 0;       ///< of the QRS peak, s from the first sample, finer than a sample
    float Amplitude = 0;   ///< of the peak from the baseline, panel units; negative for a downward one
    bool Doubtful = false; ///< found by searching back, or beside lost samples or a flat line
    bool AfterGap = false; ///< between it and the beat before samples were lost, or the line was flat
    std::array<float, ShapeSize> Shape{}; ///< samples around the peak less their mean, panel units
};

} // namespace pulselark
