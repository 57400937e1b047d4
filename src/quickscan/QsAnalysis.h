#pragma once

#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

/// What a quick scan measures in a session: the spectrum of the beat intervals with the powers of its two
/// bands, and the mean heart rate. The coherence histogram and its score stand in analysis/CoherenceBins.h.
namespace pulselark {

/// Seconds that a session must be longer than to be scanned, and to hold usable data at all.
inline constexpr Long ScanMinimumSeconds = 270;
inline constexpr Long ScanSettlingSeconds = 14;

inline constexpr int QsLongestSpectrum = 4096;

// The spectrum's work buffers, sized once for the longest; the first N values are in use.
extern Series<float, QsLongestSpectrum> QsFftRealIn, QsFftImagIn, QsFftRealOut, QsFftImagOut;
/// Power by bin, in units of (10 ms)^2 of the unscaled transform; bins 1 to N / 2. Bin 1 is the mean.
extern Series<double, QsLongestSpectrum> QsSpectrum;
extern Integer QsSpectrumSize; ///< N, 128 to 4096; start 0

// Results of each channel, kept until the channel is scanned again. All start at 0.
extern double ScanPower1A, ScanPower1B;         ///< power from 0.04 to below 0.15 Hz
extern double ScanPower2A, ScanPower2B;         ///< power from 0.15 to 0.4 Hz
extern double ScanPowerRatioA, ScanPowerRatioB; ///< low over high
extern double MeanHeartRateA, MeanHeartRateB;   ///< beats per minute, whole

/// The results of one channel, for routines that work on either.
struct ScanChannel {
    const char* Name; ///< "A" or "B"
    const SecondsBuffer &Coherence, &Ibi;
    double &Power1, &Power2, &PowerRatio, &MeanHeartRate;
    Integer& Peak;
    CoherenceHistogram& Bins;
};
extern const ScanChannel ScanA, ScanB;

/// The channel that the page shows: A while `QuickScanFresh`.
const ScanChannel& ShownChannel();

/// The largest power of two below `sessionSeconds`, 128 to 4096. Clears the work buffers for that length.
Integer QsSizeSpectrum(Long sessionSeconds);

/// Bin of a frequency, given as a fraction of one cycle a second: `fraction` * `size`, rounded.
Integer FreqToBin(double fraction, Integer size);

/// Spectrum, band powers and ratio of the shown channel over the last N seconds. Both channels are computed
/// from the intervals of channel A: pages and files of scans have always been made so, and stay comparable.
/// A session of 270 seconds or less changes nothing; without any power in the high band the ratio stays.
void QsCalcSpectrum();

/// Mean heart rate of a channel after the settling time.
void QsMeanRateA();
void QsMeanRateB();

/// The whole measurement of the shown channel: spectrum, histogram, rate; then `DynamicIndex` is its score.
void QsMeasure();

/// Puts the results above to their start values.
void ResetQsAnalysis();

} // namespace pulselark
