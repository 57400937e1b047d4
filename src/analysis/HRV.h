#pragma once

#include "base/Numbers.h"

/// Heart rate variability: the power spectrum of the last 256 seconds of beat intervals, sampled once a
/// second, with its low and high frequency bands (0.04 to 0.15 Hz and 0.15 to 0.4 Hz: Task Force of the ESC
/// and NASPE, Circulation 93(5):1043-1065, 1996).
namespace pulselark {

/// Nearest bin of a frequency in Hz for a transform of `length` values at one a second.
int BinOfFrequency(double frequency, int length);

/// Power spectrum of `IbiA` over the 256 seconds that end with `AnalysisSecond` (seconds before the first
/// count as 0; nothing is resampled, detrended or windowed). Out: `HrvPowerA` (128 bins, real^2 +
/// imaginary^2, s^2), `HrvLfA` (bins 10 to 37) and `HrvHfA` (bins 38 to 102). It ends by drawing the bars of
/// the two powers.
void CalcHrvA();
void CalcHrvB();

} // namespace pulselark
