#pragma once

#include "platform/Surface.h"

namespace pulselark {

/// Marks on the coherence panel the periods that stand in the golden mean and in the octave to the peak's
/// period: thin lines at the period times and divided by 1.618, and times and divided by 2, as
/// `ShowGoldenRatio` and `ShowOctaveRatio` want them. With `SolidFillGraph` the band between the lines of
/// each pair is filled; `OctaveInFront` draws the octave last. `peakIndex` 0 has no peak. `left` is the
/// plot's left edge and `pixelsPerIndex` the width of one index.
void DrawRatioMarks(Surface& panel, int peakIndex, double left, double pixelsPerIndex);

} // namespace pulselark
