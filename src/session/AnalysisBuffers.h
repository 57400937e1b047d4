#pragma once

#include "base/Numbers.h"
#include "base/Series.h"

/// What the analyses compute and keep from second to second, and the transform buffers that both channels
/// share one after the other. Everything here is put to its start value by ResetSessionBuffers.
namespace pulselark {

inline constexpr int SpectrumFftLength = 1024;   ///< samples per transform: 8 seconds
inline constexpr int SpectrumBins = 512;         ///< bin i stands for (i - 1) * 0.125 Hz
inline constexpr int CoherenceFftLength = 512;   ///< the spectrum's bins are its samples
inline constexpr int CoherenceCurvePoints = 256; ///< point i has index k = i - 1, a period of k / 64 s
inline constexpr int HrvFftLength = 256;         ///< seconds per transform
inline constexpr int HrvBins = 128;              ///< bin i stands for (i - 1) / 256 Hz
inline constexpr Long HrvMinimumSeconds = 256;   ///< seconds of data that the HRV needs before it is shown
inline constexpr int RingSlots = 20;             ///< newest spectra and curves kept per channel

/// The last twenty curves of a channel: [slot][bin].
using SpectrumRing = Series<Series<float, SpectrumBins>, RingSlots>;
using CepstrumRing = Series<Series<float, CoherenceCurvePoints>, RingSlots>;
using CoherenceHistogram = Series<Integer, 10>;

// Transform buffers. The imaginary inputs stay zero. FftRealIn1024 carries over from call to call: in the
// first seconds of a session its older part is what an earlier call left there.
extern Series<float, SpectrumFftLength> FftRealIn1024, FftImagIn1024, FftRealOut1024, FftImagOut1024;
extern Series<float, CoherenceFftLength> CepstrumRealIn, CepstrumImagIn, CepstrumRealOut, CepstrumImagOut;
extern Series<float, HrvFftLength> HrvRealIn, HrvImagIn, HrvRealOut, HrvImagOut;

// Spectrum: magnitudes of the ECG, panel units times samples (no division by the length).
extern SpectrumRing SpectrumRawA, SpectrumRawB; ///< single transforms; start 0
extern SpectrumRing SpectrumAvgA, SpectrumAvgB; ///< averaged, what is drawn; start 0
extern Integer SpectrumSlotA, SpectrumSlotB;    ///< slot of the newest spectrum, 1 to 20; start 1
extern double SpectrumNormA, SpectrumNormB;     ///< sum of the averaged bins 1 to 128, times ln 128; start 0

/// What one channel's spectrum remembers of its last second.
struct SpectrumMemory {
    Long LastSecond = 0;      ///< second last analysed
    Integer AverageCount = 0; ///< spectra averaged now, 1 to SpectrumAverageLimit
};
/// The spectrum panel's memory: per channel what was analysed, and the state of a scale drag.
struct SpectrumTrackRecord {
    SpectrumMemory A, B;
    float DragX = 0;
    Integer DragMaxHz = 0;
    float DragY = 0;
    double DragGain = 0;
    double DragGainApplied = 0;
};
extern SpectrumTrackRecord SpectrumTrack;

// Coherence: spectra of the spectra, divided by the norm.
extern CepstrumRing CepstrumA, CepstrumB;    ///< what is drawn; start 0
extern Integer CepstrumSlotA, CepstrumSlotB; ///< slot of the newest curve, 1 to 20; start 1
extern Integer PeakIndexA, PeakIndexB;       ///< index k of the last peak, 3840 / k beats per minute; start 0

// Heart rate variability, s^2.
extern Series<float, HrvBins> HrvPowerA, HrvPowerB; ///< power of each bin; start 0
extern double HrvLfA, HrvHfA, HrvLfB, HrvHfB;       ///< band sums; start 0

// Histograms of coherence over the session.
extern CoherenceHistogram CoherenceBins, CohScoreBinsA, CohScoreBinsB; ///< start 0

/// Clears all of the above.
void ResetAnalysisBuffers();

} // namespace pulselark
