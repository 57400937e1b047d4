#include "session/AnalysisBuffers.h"

namespace pulselark {

Series<float, SpectrumFftLength> FftRealIn1024, FftImagIn1024, FftRealOut1024, FftImagOut1024;
Series<float, CoherenceFftLength> CepstrumRealIn, CepstrumImagIn, CepstrumRealOut, CepstrumImagOut;
Series<float, HrvFftLength> HrvRealIn, HrvImagIn, HrvRealOut, HrvImagOut;

SpectrumRing SpectrumRawA, SpectrumRawB;
SpectrumRing SpectrumAvgA, SpectrumAvgB;
Integer SpectrumSlotA = 1;
Integer SpectrumSlotB = 1;
double SpectrumNormA = 0;
double SpectrumNormB = 0;
SpectrumTrackRecord SpectrumTrack;

CepstrumRing CepstrumA, CepstrumB;
Integer CepstrumSlotA = 1;
Integer CepstrumSlotB = 1;
Integer PeakIndexA = 0;
Integer PeakIndexB = 0;

Series<float, HrvBins> HrvPowerA, HrvPowerB;
double HrvLfA = 0;
double HrvHfA = 0;
double HrvLfB = 0;
double HrvHfB = 0;

CoherenceHistogram CoherenceBins, CohScoreBinsA, CohScoreBinsB;

namespace {

template <class... Rows>
void FillAll(Rows&... rows) {
    (rows.Fill({}), ...);
}

} // namespace

void ResetAnalysisBuffers() {
    FillAll(FftRealIn1024, FftImagIn1024, FftRealOut1024, FftImagOut1024);
    FillAll(CepstrumRealIn, CepstrumImagIn, CepstrumRealOut, CepstrumImagOut);
    FillAll(SpectrumRawA, SpectrumAvgA, SpectrumRawB, SpectrumAvgB);
    FillAll(HrvRealIn, HrvImagIn, HrvRealOut, HrvImagOut);
    SpectrumSlotA = SpectrumSlotB = 1;
    SpectrumNormA = SpectrumNormB = 0;
    SpectrumTrack.A = SpectrumTrack.B = SpectrumMemory{};
    FillAll(CepstrumA, CepstrumB);
    CepstrumSlotA = CepstrumSlotB = 1;
    PeakIndexA = PeakIndexB = 0;
    FillAll(HrvPowerA, HrvPowerB);
    HrvLfA = HrvHfA = HrvLfB = HrvHfB = 0;
    FillAll(CoherenceBins, CohScoreBinsA, CohScoreBinsB);
}

} // namespace pulselark
