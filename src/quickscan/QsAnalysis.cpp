#include "quickscan/QsAnalysis.h"

#include "analysis/CoherenceBins.h"
#include "base/FFT.h"

#include <algorithm>

namespace pulselark {

Series<float, QsLongestSpectrum> QsFftRealIn, QsFftImagIn, QsFftRealOut, QsFftImagOut;
Series<double, QsLongestSpectrum> QsSpectrum;
Integer QsSpectrumSize = 0;

double ScanPower1A = 0;
double ScanPower1B = 0;
double ScanPower2A = 0;
double ScanPower2B = 0;
double ScanPowerRatioA = 0;
double ScanPowerRatioB = 0;
double MeanHeartRateA = 0;
double MeanHeartRateB = 0;

const ScanChannel ScanA{"A",          CoherenceA,      IbiA,           ScanPower1A,
                        ScanPower2A,  ScanPowerRatioA, MeanHeartRateA, ScanPeakA,
                        CohScoreBinsA};
const ScanChannel ScanB{"B",          CoherenceB,      IbiB,           ScanPower1B,
                        ScanPower2B,  ScanPowerRatioB, MeanHeartRateB, ScanPeakB,
                        CohScoreBinsB};

namespace {

// Bands of heart rate variability, in Hz at one value a second.
constexpr double LowBandFrom = 0.04;
constexpr double HighBandFrom = 0.15;
constexpr double HighBandTo = 0.4;

void MeanRate(const ScanChannel& channel) {
    double sum = 0;
    for (Long i = ScanSettlingSeconds; i <= SessionSeconds; ++i)
        sum += channel.Ibi.at(i);
    const Long count = SessionSeconds - (ScanSettlingSeconds - 1);
    if (count >= 1 && sum > 0)
        channel.MeanHeartRate = static_cast<double>(Round(60 / (sum / count)));
}

} // namespace

const ScanChannel& ShownChannel() {
    return QuickScanFresh != Off ? ScanA : ScanB;
}

Integer QsSizeSpectrum(Long sessionSeconds) {
    int size = 128;
    while (2 * size < sessionSeconds && size < QsLongestSpectrum)
        size *= 2;
    const auto clear = [size](auto& row) { std::fill_n(row.begin(), size, 0); };
    clear(QsFftRealIn);
    clear(QsFftImagIn);
    clear(QsFftRealOut);
    clear(QsFftImagOut);
    clear(QsSpectrum);
    return static_cast<Integer>(size);
}

Integer FreqToBin(double fraction, Integer size) {
    return static_cast<Integer>(Round(size * fraction));
}

void QsCalcSpectrum() {
    if (SessionSeconds <= ScanMinimumSeconds)
        return;
    const Integer size = QsSpectrumSize = QsSizeSpectrum(SessionSeconds);
    for (int i = 1; i <= size; ++i) {
        const double interval = IbiA.at(SessionSeconds - size + i);
        QsFftRealIn[i] = static_cast<float>((interval - 1.0) * 100 * 256 / size);
    }
    fft_float(size, 0, QsFftRealIn.data(), QsFftImagIn.data(), QsFftRealOut.data(), QsFftImagOut.data());
    const Integer lowFrom = FreqToBin(LowBandFrom, size);
    const Integer highFrom = FreqToBin(HighBandFrom, size);
    const Integer highTo = FreqToBin(HighBandTo, size);
    double low = 0;
    double high = 0;
    for (int i = 1; i <= size / 2; ++i) {
        const double real = QsFftRealOut[i];
        const double imaginary = QsFftImagOut[i];
        const double power = (imaginary * imaginary + real * real) / 100;
        QsSpectrum[i] = power;
        if (i >= lowFrom && i < highFrom)
            low += power;
        if (i >= highFrom && i <= highTo)
            high += power;
    }
    const ScanChannel& shown = ShownChannel();
    shown.Power1 = low;
    shown.Power2 = high;
    if (high > 0)
        shown.PowerRatio = low / high;
}

void QsMeanRateA() {
    MeanRate(ScanA);
}

void QsMeanRateB() {
    MeanRate(ScanB);
}

void QsMeasure() {
    QsCalcSpectrum();
    auto window = static_cast<Integer>(SessionSeconds - (ScanSettlingSeconds + 1));
    BinCoherence(ShownChannel().Coherence, window, SessionSeconds);
    if (QuickScanFresh != Off)
        QsMeanRateA();
    else
        QsMeanRateB();
    DynamicIndex = ScoreCoherenceBins();
}

void ResetQsAnalysis() {
    QsSpectrumSize = 0;
    QsSpectrum.Fill(0);
    for (const ScanChannel* channel : {&ScanA, &ScanB})
        channel->Power1 = channel->Power2 = channel->PowerRatio = channel->MeanHeartRate = 0;
}

} // namespace pulselark
