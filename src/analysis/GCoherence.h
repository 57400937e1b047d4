#pragma once

#include "base/Numbers.h"

/// Coherence: how strongly the averaged ECG spectrum repeats itself along the frequency axis. The spectrum of
/// the spectrum has one sharp peak at the beat interval when the heart beats regularly; the height of the
/// peak against the energy of the spectrum is the coherence, its place a heart rate of its own, the BPMc.
namespace pulselark {

inline constexpr int PeakFirstPoint = 12;             ///< lowest point searched and drawn, 0.17 s
inline constexpr int PeakLastPoint = 117;             ///< highest point searched and drawn, 1.81 s
inline constexpr Long CoherenceWarmupSeconds = 12;    ///< up to this second the value is replaced
inline constexpr float CoherenceWarmupValue = 0.055F; ///< stored during warm-up
inline constexpr double PercentScale = 12000 / 13.3;  ///< percent per unit of coherence: 0.11083 is 100 %

/// Moving averages take this many values before the newest one; start 0.
extern Integer MovingAverageWidth;

/// Coherence of `AnalysisSecond`; runs after the spectrum of the same second.
///
/// In: the newest slot of `SpectrumAvgA`, `SpectrumNormA`.
/// Out: the next slot of `CepstrumA` (256 points, magnitude / norm; point 1 holds the spectrum's sum),
/// `PeakIndexA` (k = point - 1 of the first highest point from 12 to 117; stays when there is none), and
/// `CoherenceA` at `AnalysisSecond` + 1 (the peak's height, or 0.055 up to second 12).
/// A silent second, norm 0, gives 0 and leaves the peak where it was. Running twice in a second advances the
/// ring twice.
void CalcCoherenceA();
void CalcCoherenceB();

/// Recomputes the moving averages over the last `MovingAverageWidth` + 1 values for the seconds 1 to
/// `AnalysisSecond` + 1: `CoherenceAvgA`, `IbiAvgA`, and with `ChannelBPresent` their twins. Before the start
/// of a series its first value stands in: position 2 for `CoherenceA`, because the value of second 1 lies
/// there, and position 1 for the others.
void SmoothSeries();

/// The averaging width for a knob at `position` 0 to 1000 of its track: 0 to 29.
Integer MovingAverageFromKnob(Integer position);

} // namespace pulselark
