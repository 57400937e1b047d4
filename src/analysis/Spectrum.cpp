#include "analysis/Spectrum.h"

#include "base/FFT.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace pulselark {

Boolean RecalcForced = Off;

namespace {

struct SpectrumChannel {
    const EcgBuffer& Ecg;
    SpectrumRing& Raw;
    SpectrumRing& Avg;
    Integer& Slot;
    double& Norm;
    SpectrumMemory& Memory;
};

// ln 128: the norm's factor.
const double LogOfNormBins = 7 * std::numbers::ln2;

// The newest samples in time order, newest last. The session's first sample is never used; positions before
// it keep what they held.
void FillTransformInput(const EcgBuffer& ecg) {
    const Long newest = AnalysisSecond * SamplesPerSecond;
    const Long count = std::clamp<Long>(newest - 1, 0, SpectrumFftLength);
    if (count > 0)
        std::copy_n(&ecg.at(newest) - (count - 1), count, &FftRealIn1024[SpectrumFftLength - count + 1]);
}

void StoreMagnitudes(Series<float, SpectrumBins>& raw) {
    const float* real = FftRealOut1024.data();
    const float* imaginary = FftImagOut1024.data();
    float* magnitude = raw.data();
    for (int i = 0; i < SpectrumBins; ++i) {
        const double re = real[i];
        const double im = imaginary[i];
        magnitude[i] = static_cast<float>(std::sqrt(re * re + im * im));
    }
}

// Mean of the newest slot and, with a `count` of 2, the one before it. Returns the sum of the norm's bins.
double StoreMean(const SpectrumRing& raw, Series<float, SpectrumBins>& avg, int slot, int count) {
    static_assert(SpectrumAverageLimit == 2);
    const float* newest = raw[slot].data();
    const float* before = count > 1 ? raw[slot > 1 ? slot - 1 : RingSlots].data() : newest;
    alignas(64) std::array<double, SpectrumBins> mean;
    for (std::size_t i = 0; i < mean.size(); ++i) {
        mean[i] = (static_cast<double>(newest[i]) + before[i]) * 0.5;
        avg.data()[i] = static_cast<float>(mean[i]);
    }
    // Four sums side by side, since each addition waits for the one before it.
    std::array<double, 4> sums{};
    static_assert(SpectrumNormBins % sums.size() == 0);
    for (std::size_t i = 0; i < SpectrumNormBins; i += sums.size()) {
        for (std::size_t lane = 0; lane < sums.size(); ++lane)
            sums[lane] += mean[i + lane];
    }
    return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

void CalcSpectrum(const SpectrumChannel& channel) {
    SpectrumMemory& memory = channel.Memory;
    if (AnalysisSecond == memory.LastSecond && RecalcForced == Off)
        return;
    FillTransformInput(channel.Ecg);
    fft_float(SpectrumFftLength, 0, FftRealIn1024.data(), FftImagIn1024.data(), FftRealOut1024.data(),
              FftImagOut1024.data());
    channel.Slot = channel.Slot < RingSlots ? static_cast<Integer>(channel.Slot + 1) : Integer{1};
    StoreMagnitudes(channel.Raw[channel.Slot]);
    const bool neighbour = std::abs(AnalysisSecond - memory.LastSecond) == 1;
    memory.AverageCount =
        neighbour ? std::min<Integer>(static_cast<Integer>(memory.AverageCount + 1), SpectrumAverageLimit)
                  : Integer{1};
    channel.Norm =
        StoreMean(channel.Raw, channel.Avg[channel.Slot], channel.Slot, memory.AverageCount) * LogOfNormBins;
    memory.LastSecond = AnalysisSecond;
}

const SpectrumChannel channelA{EcgA,          SpectrumRawA,  SpectrumAvgA,
                               SpectrumSlotA, SpectrumNormA, SpectrumTrack.A};
const SpectrumChannel channelB{EcgB,          SpectrumRawB,  SpectrumAvgB,
                               SpectrumSlotB, SpectrumNormB, SpectrumTrack.B};

} // namespace

void CalcSpectrumA() {
    CalcSpectrum(channelA);
}
void CalcSpectrumB() {
    CalcSpectrum(channelB);
}

} // namespace pulselark
