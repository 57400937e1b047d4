#pragma once

#include "session/MainBuffers.h"

/// The histogram of coherence over a stretch of the session, and how closely it follows a bell curve: used by
/// the training's scores and by the quick scan.
namespace pulselark {

/// Coherence of 100 percent in the histogram and on the quick scan's page.
inline constexpr double FullCoherence = 0.11;

// What the last histogram left. All start at 0.
extern double QsCoherencePercent; ///< mean of the series in percent of `FullCoherence`
extern Integer ScanPeakA;         ///< the same, rounded, for the channel the histogram was made for
extern Integer ScanPeakB;

/// Sorts `series[endSecond - window]` to `series[endSecond]` into `CoherenceBins`: bin b holds values of b
/// tenths of `FullCoherence`, rounded with ties to even, bin 10 all above as well. Values of bin 0 count
/// neither in the histogram nor among the values that the mean is divided by, but they do go into its sum; so
/// the mean is somewhat high, on purpose. Without any value that counts, `QsCoherencePercent` is the plain
/// sum.
///
/// `window` 61 asks for everything after the settling time, and is rewritten to its length. With `endSecond`
/// not above window + 14 nothing changes. The histogram and its rounded mean are kept for channel A while
/// `QuickScanFresh`, else for channel B.
void BinCoherence(const SecondsBuffer& series, Integer& window, Long endSecond);

/// The bell curve that histograms are held against, at `x` tenths of its standard deviation from the middle;
/// 0.9974 at its top.
double BellCurve(double x);

/// How closely `CoherenceBins`, as parts of its largest bin, follows the bell curve around bin 5: 100 times
/// the area in common over the curve's, where area above the curve counts twice against it. Whole, 0 to 100.
Integer ScoreCoherenceBins();

/// Puts the results above to their start values.
void ResetCoherenceBins();

} // namespace pulselark
