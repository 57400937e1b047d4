#pragma once

#include "base/Numbers.h"

/// Spectrum of the ECG: once a second the newest eight seconds of each channel become a magnitude spectrum in
/// a ring of twenty, and a running mean over at most two of them. The beat-to-beat rhythm shows in it as a
/// comb of harmonics spaced at the heart rate; the coherence analysis reads the mean and the norm left here.
namespace pulselark {

/// Consecutive spectra that are averaged, at most.
inline constexpr Integer SpectrumAverageLimit = 2;
/// The first bins, from 0 Hz on, that form the normalising sum: up to 15.875 Hz.
inline constexpr int SpectrumNormBins = 128;

/// While clear, a second that was analysed last is not analysed again; start 0.
extern Boolean RecalcForced;

/// Spectrum of the eight seconds of ECG that end with `AnalysisSecond` (0 to 3601).
///
/// In: `EcgA`; samples before the session's second sample are what the shared transform buffer held before.
/// Out: the next slot of `SpectrumRawA` (512 magnitudes, no window, not scaled) and of `SpectrumAvgA` (mean
/// of the newest one or two; one after a jump by more than a second), `SpectrumNormA`. A second that equals
/// the last one is left alone unless `RecalcForced`. Always A before B.
void CalcSpectrumA();
void CalcSpectrumB();

} // namespace pulselark
