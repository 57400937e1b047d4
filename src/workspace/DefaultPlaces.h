#pragma once

#include <QRect>

#include <array>

namespace pulselark {

inline constexpr int AnalysisModules = 5;

/// Places of the analysis modules in the built-in layout, in the order ECG, spectrum, coherence, history,
/// HRV: the proportions of a desk of 1024 x 738 pixels, filling `area` with `gap` pixels between
/// neighbours.
std::array<QRect, AnalysisModules> DefaultPlaces(const QRect& area, int gap);

} // namespace pulselark
