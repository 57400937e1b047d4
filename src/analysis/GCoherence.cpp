#include "analysis/GCoherence.h"

#include "base/FFT.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

Integer MovingAverageWidth = 0;

namespace {

struct CoherenceChannel {
    const SpectrumRing& Avg;
    const Integer& SpectrumSlot;
    const double& Norm;
    CepstrumRing& Cepstrum;
    Integer& Slot;
    Integer& PeakIndex;
    SecondsBuffer& Coherence;
};

using CoherenceCurve = std::array<double, CoherenceCurvePoints>;

// Magnitudes over the norm. A silent second, norm 0, gives a curve of zeros.
void CurveOfTransform(double norm, CoherenceCurve& curve) {
    if (!(norm > 0)) {
        curve.fill(0);
        return;
    }
    const double perNorm = 1 / norm; // a division for each point would take as long as its root
    const float* real = CepstrumRealOut.data();
    const float* imaginary = CepstrumImagOut.data();
    for (std::size_t i = 0; i < curve.size(); ++i) {
        const double re = real[i];
        const double im = imaginary[i];
        curve[i] = std::sqrt(re * re + im * im) * perNorm;
    }
}

void CalcCoherence(const CoherenceChannel& channel) {
    CepstrumRealIn = channel.Avg[channel.SpectrumSlot];
    fft_float(CoherenceFftLength, 0, CepstrumRealIn.data(), CepstrumImagIn.data(), CepstrumRealOut.data(),
              CepstrumImagOut.data());
    channel.Slot = channel.Slot < RingSlots ? static_cast<Integer>(channel.Slot + 1) : Integer{1};

    alignas(64) CoherenceCurve curve;
    CurveOfTransform(channel.Norm, curve);
    float* kept = channel.Cepstrum[channel.Slot].data();
    for (std::size_t i = 0; i < curve.size(); ++i)
        kept[i] = static_cast<float>(curve[i]);

    double best = 0;
    for (std::size_t k = PeakFirstPoint - 1; k < PeakLastPoint; ++k) {
        if (curve[k] > best) {
            best = curve[k];
            channel.PeakIndex = static_cast<Integer>(k);
        }
    }
    channel.Coherence.at(AnalysisSecond + 1) =
        AnalysisSecond > CoherenceWarmupSeconds ? static_cast<float>(best) : CoherenceWarmupValue;
}

const CoherenceChannel channelA{SpectrumAvgA,  SpectrumSlotA, SpectrumNormA, CepstrumA,
                                CepstrumSlotA, PeakIndexA,    CoherenceA};
const CoherenceChannel channelB{SpectrumAvgB,  SpectrumSlotB, SpectrumNormB, CepstrumB,
                                CepstrumSlotB, PeakIndexB,    CoherenceB};

// The mean of the `width` + 1 values that end at each position, added up from the oldest to the newest.
// Positions are worked on in blocks, so that the sums of a block run side by side.
void MovingAverage(const SecondsBuffer& in, SecondsBuffer& out, Long lowest, Long last, Long width) {
    constexpr Long BlockSize = 64;
    std::array<double, BlockSize> sum;
    const double divisor = width + 1;
    const Long settled = std::min(lowest + width, last + 1); // from here on no position lies before the start
    for (Long j = 1; j < settled; ++j) {
        double total = 0;
        for (Long position = j - width; position <= j; ++position)
            total += in[std::max(position, lowest)];
        out[j] = static_cast<float>(total / divisor);
    }
    for (Long first = settled; first <= last; first += BlockSize) {
        const Long count = std::min(BlockSize, last + 1 - first);
        sum.fill(0);
        for (Long age = width; age >= 0; --age) {
            const float* values = &in[first - age];
            for (Long i = 0; i < count; ++i)
                sum[static_cast<std::size_t>(i)] += values[i];
        }
        for (Long i = 0; i < count; ++i)
            out[first + i] = static_cast<float>(sum[static_cast<std::size_t>(i)] / divisor);
    }
}

} // namespace

void CalcCoherenceA() {
    CalcCoherence(channelA);
}
void CalcCoherenceB() {
    CalcCoherence(channelB);
}

void SmoothSeries() {
    const Long last = std::clamp<Long>(AnalysisSecond + 1, 0, SecondsBufferSize);
    const Long width = std::max<Long>(MovingAverageWidth, 0);
    MovingAverage(CoherenceA, CoherenceAvgA, 2, last, width);
    MovingAverage(IbiA, IbiAvgA, 1, last, width);
    if (ChannelBPresent != Off) {
        MovingAverage(CoherenceB, CoherenceAvgB, 1, last, width);
        MovingAverage(IbiB, IbiAvgB, 1, last, width);
    }
}

Integer MovingAverageFromKnob(Integer position) {
    return static_cast<Integer>(Round(29 * std::clamp(position / 1000.0, 0.0, 1.0)));
}

} // namespace pulselark
