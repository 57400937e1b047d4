#include "analysis/HRV.h"

#include "analysis/HrvPanel.h"
#include "base/FFT.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

#include <algorithm>

namespace pulselark {

namespace {

struct HrvChannel {
    const SecondsBuffer& Ibi;
    Series<float, HrvBins>& Power;
    double& Lf;
    double& Hf;
};

// Newest interval first: reversed in time, which leaves the power spectrum as it is.
void FillTransformInput(const SecondsBuffer& ibi) {
    const Long count = std::clamp<Long>(AnalysisSecond, 0, HrvFftLength);
    for (Long i = 1; i <= count; ++i)
        HrvRealIn[i] = ibi.at(AnalysisSecond - i + 1);
    for (Long i = count + 1; i <= HrvFftLength; ++i)
        HrvRealIn[i] = 0;
}

void CalcHrv(const HrvChannel& channel) {
    const int lfFirst = BinOfFrequency(0.04, HrvFftLength);
    const int hfFirst = BinOfFrequency(0.15, HrvFftLength);
    const int hfLast = BinOfFrequency(0.4, HrvFftLength);
    FillTransformInput(channel.Ibi);
    fft_float(HrvFftLength, 0, HrvRealIn.data(), HrvImagIn.data(), HrvRealOut.data(), HrvImagOut.data());
    channel.Lf = channel.Hf = 0;
    for (int i = 1; i <= HrvBins; ++i) {
        const double re = HrvRealOut[i];
        const double im = HrvImagOut[i];
        const double power = re * re + im * im;
        channel.Power[i] = static_cast<float>(power);
        if (i >= lfFirst && i < hfFirst)
            channel.Lf += power;
        if (i >= hfFirst && i <= hfLast)
            channel.Hf += power;
    }
}

const HrvChannel channelA{IbiA, HrvPowerA, HrvLfA, HrvHfA};
const HrvChannel channelB{IbiB, HrvPowerB, HrvLfB, HrvHfB};

} // namespace

int BinOfFrequency(double frequency, int length) {
    return static_cast<int>(Round(frequency * length));
}

void CalcHrvA() {
    CalcHrv(channelA);
    DrawHrvBarsA();
}

void CalcHrvB() {
    CalcHrv(channelB);
    DrawHrvBarsB();
}

} // namespace pulselark
