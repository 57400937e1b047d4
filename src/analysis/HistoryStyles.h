#pragma once

#include "base/Numbers.h"

#include <string>

namespace pulselark {

enum class SeriesStyle { None, Line, Filled };

/// How a history style draws its two series; the one drawn first lies behind.
struct HistoryStyleParts {
    SeriesStyle Coherence;
    SeriesStyle Rate;
    bool CoherenceFirst;
};
/// Style 1 to 9; anything else is held within.
const HistoryStyleParts& StyleOf(Integer style);

/// The rate, in beats per minute, at a value of the percent scale: value / 2 + 40.
std::string RateLabel(int percent);

} // namespace pulselark
